#include "ui/controls/TextArea.h"

#include "ui/LookChanges.h"
#include "ui/controls/FieldGround.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QEvent>
#include <QFontDatabase>
#include <QPainter>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace Kovrel {

namespace {

constexpr int padding = 6;

QFont fontFor(TextArea::Kind kind)
{
    if (kind == TextArea::Kind::words)
        return Typography::font(TextStyle::control);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(Typography::font(TextStyle::caption).pixelSize());
    return font;
}

} // namespace

TextArea::TextArea(Kind kind, const QString& name) : m_kind(kind), m_edit(new QPlainTextEdit)
{
    m_edit->setAccessibleName(name);
    m_edit->setTabChangesFocus(true);
    m_edit->setFrameShape(QFrame::NoFrame);
    m_edit->viewport()->setAutoFillBackground(false);
    m_edit->installEventFilter(this);
    if (kind == Kind::report) {
        m_edit->setLineWrapMode(QPlainTextEdit::NoWrap);
        m_edit->setLayoutDirection(Qt::LeftToRight); // in every language a report is English
    }
    setFocusProxy(m_edit);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->addWidget(m_edit);
    takeLook();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &TextArea::takeLook);
}

void TextArea::takeLook()
{
    m_edit->setFont(fontFor(m_kind));
    update();
}

QString TextArea::text() const
{
    return m_edit->toPlainText();
}

void TextArea::setText(const QString& text)
{
    m_edit->setPlainText(text);
}

void TextArea::setPlaceholder(const QString& text)
{
    m_edit->setPlaceholderText(text);
}

bool TextArea::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return QWidget::eventFilter(object, event);
}

void TextArea::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    FieldGround::paint(painter, rect(), Theme::current().card, m_edit->hasFocus());
}

} // namespace Kovrel
