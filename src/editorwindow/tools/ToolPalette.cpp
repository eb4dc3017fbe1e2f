#include "editorwindow/tools/ToolPalette.h"

#include "editorwindow/tools/TabStop.h"
#include "editorwindow/tools/ToolKeys.h"
#include "ui/controls/SymbolButton.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr int groupGap = 9;

// A space, and a line in it, comes before these.
constexpr std::array groups{EditorTool::arrow, EditorTool::rectangle, EditorTool::step, EditorTool::blur,
                            EditorTool::spotlight};

constexpr std::array names{
    QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Select"),    QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Crop"),
    QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Arrow"),     QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Line"),
    QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Pen"),       QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Highlighter"),
    QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Rectangle"), QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Filled Rectangle"),
    QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Ellipse"),   QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Step"),
    QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Text"),      QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Blur"),
    QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Pixelate"),  QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Black Out"),
    QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Spotlight"), QT_TRANSLATE_NOOP("Kovrel::ToolPalette", "Measure"),
};
static_assert(names.size() == RawStrings<EditorTool>::table.size());

// Two tools have one symbol; covering is told by a text that is covered.
QString symbolOf(EditorTool tool)
{
    return tool == EditorTool::blackout ? "rectangle.fill.on.text" : symbolName(tool);
}

} // namespace

ToolPalette::ToolPalette()
{
    setAccessibleName(tr("Tools"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    for (const auto& [tool, name] : RawStrings<EditorTool>::table)
        makeButton(tool);
}

void ToolPalette::makeButton(EditorTool tool)
{
    const QString name = tr(names[size_t(tool)]);
    auto* const button = new SymbolButton(symbolOf(tool), name);
    button->setParent(this);
    button->setToolTip(QString("%1 (%2)").arg(name, QChar(ToolKeys::letterOf(tool))));
    button->setCheckable(true);
    button->setAutoExclusive(true);
    connect(button, &SymbolButton::clicked, this, [this, tool] { Q_EMIT toolChosen(tool); });
    m_buttons.push_back(button);
}

// A group begins a row of its own.
QRect ToolPalette::place(EditorTool tool, int columns) const
{
    const QSize button = m_buttons.front()->sizeHint();
    const QSize step = button + QSize(Spacing::tight, Spacing::tight);
    QPoint corner(Spacing::small, Spacing::small);
    int column = 0;
    for (int before = 0; before < int(tool); ++before) {
        const bool isGroupNext = std::ranges::find(groups, EditorTool(before + 1)) != groups.end();
        const bool isRowFull = ++column == columns || isGroupNext;
        corner.ry() += isRowFull ? step.height() : 0;
        corner.ry() += isGroupNext ? groupGap : 0;
        column = isRowFull ? 0 : column;
    }
    return {corner + QPoint(column * step.width(), 0), button};
}

QSize ToolPalette::sizeOf(int columns) const
{
    const int across = m_buttons.front()->sizeHint().width() + Spacing::tight;
    return {2 * Spacing::small - Spacing::tight + columns * across,
            place(EditorTool::measure, columns).bottom() + 1 + Spacing::small};
}

void ToolPalette::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const int columns = height() < sizeOf(1).height() ? 2 : 1;
    if (columns != std::exchange(m_columns, columns))
        updateGeometry();
    for (const auto& [tool, name] : RawStrings<EditorTool>::table)
        m_buttons[size_t(tool)]->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place(tool, columns)));
}

void ToolPalette::setTool(EditorTool tool)
{
    m_buttons[size_t(tool)]->setChecked(true);
    TabStop::setOnly(m_buttons[size_t(tool)], m_buttons);
}

void ToolPalette::keyPressEvent(QKeyEvent* event)
{
    const int step = event->key() == Qt::Key_Down ? 1 : event->key() == Qt::Key_Up ? -1 : 0;
    const auto focused = std::ranges::find_if(m_buttons, &QWidget::hasFocus);
    if (step == 0 || focused == m_buttons.end())
        return QWidget::keyPressEvent(event);
    const auto count = qptrdiff(m_buttons.size());
    m_buttons[size_t((focused - m_buttons.begin() + step + count) % count)]->setFocus(Qt::TabFocusReason);
}

void ToolPalette::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.fillRect(rect(), theme.card);
    const QRect edge(width() - 1, 0, 1, height());
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), edge), theme.separator);
    for (const EditorTool tool : groups) {
        const int y = m_buttons[size_t(tool)]->y() - groupGap / 2 - 1;
        painter.fillRect(QRect(Spacing::medium, y, width() - 2 * Spacing::medium, 1), theme.separator);
    }
}

} // namespace Kovrel
