#include "editorwindow/find/FindBar.h"

#include "editorwindow/tools/ChoiceButton.h"
#include "ui/Label.h"
#include "ui/PrimaryButton.h"
#include "ui/Symbols.h"
#include "ui/controls/SymbolButton.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

namespace Kovrel {

namespace {

constexpr QSize fieldSize(260, 30);

} // namespace

FindBar::FindBar(EditorSession& session, Preferences& preferences)
    : m_preferences(preferences),
      m_find(session,
             [this] {
                 refresh();
                 Q_EMIT changed();
             }),
      m_layout(new QHBoxLayout(this)),
      m_query(new QLineEdit),
      m_message(new Label(TextStyle::body, Label::Role::secondary)),
      m_kind(new ChoiceButton(tr("How It Is Redacted"), {tr("Blur"), tr("Pixelate"), tr("Black Out")})),
      m_redact(new PrimaryButton(tr("Redact All")))
{
    setAccessibleName(tr("Find"));
    m_layout->setContentsMargins(Spacing::medium, Spacing::small, Spacing::medium, Spacing::small);
    m_layout->setSpacing(Spacing::small);
    addSearch();
    m_layout->addStretch(1);
    addRedaction();
    connect(addButton("xmark", tr("Close (Escape)")), &SymbolButton::clicked, this, &FindBar::closed);
    refresh();
}

SymbolButton* FindBar::addButton(const QString& symbol, const QString& name)
{
    auto* const button = new SymbolButton(symbol, name);
    m_layout->addWidget(button);
    return button;
}

void FindBar::addSearch()
{
    m_query->setMinimumSize(fieldSize);
    m_query->setPlaceholderText(tr("Find text in this capture"));
    m_query->setAccessibleName(tr("Find"));
    m_query->setClearButtonEnabled(true);
    m_query->addAction(Symbols::icon("magnifyingglass"), QLineEdit::LeadingPosition);
    m_layout->addWidget(m_query);
    m_message->setWordWrap(false);
    m_previous = addButton("chevron.up", tr("Previous (Shift+Return)"));
    m_next = addButton("chevron.down", tr("Next (Return)"));
    m_layout->addWidget(m_message);
    connect(m_query, &QLineEdit::textChanged, this, [this](const QString& text) { m_find.setQuery(text); });
    connect(m_previous, &SymbolButton::clicked, this, [this] { go(-1); });
    connect(m_next, &SymbolButton::clicked, this, [this] { go(1); });
}

void FindBar::addRedaction()
{
    m_redact->setFocusPolicy(Qt::TabFocus);
    m_layout->addWidget(m_kind);
    m_layout->addWidget(m_redact);
    connect(m_kind, &ChoiceButton::chosen, this, [this](int index) {
        m_preferences.set(Settings::redactTool, RedactTool(index));
        refresh();
    });
    connect(m_redact, &QPushButton::clicked, this,
            [this] { m_find.redactAll(m_preferences.get(Settings::redactTool)); });
}

void FindBar::setText(Text state, std::vector<OCRLine> lines)
{
    m_text = state;
    m_hasLines = !lines.empty();
    m_find.setLines(std::move(lines));
}

void FindBar::open()
{
    show();
    refresh();
    m_query->setFocus(Qt::ShortcutFocusReason);
    m_query->selectAll();
}

// --- What is shown

QString FindBar::message() const
{
    if (m_text == Text::awaited)
        return tr("Reading text…");
    if (m_text == Text::failed)
        return tr("The text can't be read");
    if (!m_hasLines)
        return tr("There is no text in this capture");
    if (m_query->text().trimmed().isEmpty())
        return {};
    const auto current = m_find.current();
    return current ? tr("%1 of %2").arg(*current + 1).arg(m_find.hits().size()) : tr("Not found");
}

void FindBar::refresh()
{
    const bool hasHits = m_find.current().has_value();
    m_message->setText(message());
    m_message->setAccessibleName(message());
    m_previous->setEnabled(hasHits);
    m_next->setEnabled(hasHits);
    m_redact->setEnabled(hasHits);
    m_kind->setChoice(int(m_preferences.get(Settings::redactTool)));
}

void FindBar::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.fillRect(rect(), theme.card);
    painter.fillRect(QRect(0, height() - 1, width(), 1), theme.separator);
}

void FindBar::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return go(event->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
    case Qt::Key_Escape:
        Q_EMIT closed();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace Kovrel
