#include "historywindow/search/HistorySearchField.h"

#include "historywindow/search/FilterChip.h"
#include "ui/Ground.h"
#include "ui/LookChanges.h"
#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/ReadingSide.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>

namespace Kovrel {

namespace {

constexpr int glassSide = 14;
constexpr int padding = 10;
constexpr int fieldPadding = 5; // above and below what is typed

} // namespace

HistorySearchField::HistorySearchField()
{
    m_edit = new QLineEdit;
    m_edit->setFrame(false);
    m_edit->setPlaceholderText(tr("Search applications, files, kinds and text"));
    m_edit->setAccessibleName(tr("Search"));
    m_edit->setClearButtonEnabled(true);
    m_edit->installEventFilter(this);
    connect(m_edit, &QLineEdit::textChanged, this, &HistorySearchField::textChanged);
    m_layout = new QHBoxLayout(this);
    constexpr int withGlass = padding + glassSide + Spacing::small;
    m_layout->setContentsMargins(ReadingSide::margins({withGlass, fieldPadding, padding, fieldPadding}));
    m_layout->setSpacing(Spacing::tight + Spacing::tight);
    m_layout->addWidget(m_edit, 1);
    setFocusProxy(m_edit);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    takeLook();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &HistorySearchField::takeLook);
}

void HistorySearchField::takeLook()
{
    m_edit->setFont(Typography::font(TextStyle::control));
    QPalette palette = Theme::current().palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    m_edit->setPalette(palette);
}

QString HistorySearchField::text() const
{
    return m_edit->text();
}

void HistorySearchField::setText(const QString& text)
{
    m_edit->setText(text);
}

void HistorySearchField::takeFocus()
{
    m_edit->setFocus(Qt::ShortcutFocusReason);
    m_edit->selectAll();
}

void HistorySearchField::setChips(const std::vector<Chip>& chips)
{
    if (chips == m_chips)
        return;
    m_chips = chips;
    for (FilterChip* button : std::exchange(m_buttons, {}))
        button->deleteLater();
    for (size_t index = 0; index < chips.size(); ++index) {
        auto* button = new FilterChip(chips[index].title, chips[index].color);
        connect(button, &QPushButton::clicked, this, [this, index] { Q_EMIT chipRemoved(int(index)); });
        m_layout->insertWidget(int(index), button);
        m_buttons.push_back(button);
    }
    m_edit->setFocus();
}

void HistorySearchField::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    Ground{theme.card, m_edit->hasFocus() ? theme.focusRing : theme.cardEdge, Radius::control}.paint(painter, rect());
    const QRect glass(padding, (height() - glassSide) / 2, glassSide, glassSide);
    Symbols::paint(painter, "magnifyingglass", QStyle::visualRect(layoutDirection(), rect(), glass),
                   theme.secondaryText);
}

bool HistorySearchField::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(object, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    return takeKey(key->key(), key->modifiers());
}

bool HistorySearchField::takeKey(int key, Qt::KeyboardModifiers modifiers)
{
    switch (key) {
    case Qt::Key_Down:
        Q_EMIT highlightMoved(1);
        return true;
    case Qt::Key_Up:
        Q_EMIT highlightMoved(-1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT committed();
        return true;
    case Qt::Key_Escape:
        Q_EMIT escaped();
        return true;
    case Qt::Key_Backspace:
        if (!m_edit->text().isEmpty() || m_chips.empty() || modifiers != Qt::NoModifier)
            return false;
        Q_EMIT lastChipRemoved();
        return true;
    default:
        return false;
    }
}

} // namespace Kovrel
