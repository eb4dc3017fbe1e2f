#include "settings/controls/TextLineField.h"

#include "ui/controls/LineField.h"
#include "ui/tokens/Typography.h"

namespace Kovrel {

namespace {

constexpr int usualWidth = 300;

} // namespace

TextLineField::TextLineField() : m_line(new LineField)
{
    m_line->setFixedWidth(int(usualWidth * Typography::scale()));
    add(m_line);
    connect(m_line, &QLineEdit::textEdited, this, [this](const QString& text) { Q_EMIT changed(text); });
}

// What is being typed is not touched, or the cursor would jump.
void TextLineField::setValue(const QVariant& value)
{
    if (m_line->text() == value.toString())
        return;
    m_line->setText(value.toString());
    m_line->setCursorPosition(0);
}

} // namespace Kovrel
