#include "ui/controls/LineField.h"

#include "ui/LookChanges.h"
#include "ui/controls/FieldGround.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr int padding = 7;

} // namespace

LineField::LineField()
{
    setFrame(false);
    setTextMargins(padding, padding, padding, padding);
    takeLook();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &LineField::takeLook);
}

void LineField::takeLook()
{
    setFont(Typography::font(TextStyle::control));
    QPalette palette = Theme::current().palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    setPalette(palette);
}

QSize LineField::sizeHint() const
{
    return {QLineEdit::sizeHint().width(), fontMetrics().height() + 2 * padding};
}

void LineField::paintEvent(QPaintEvent* event)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    FieldGround::paint(painter, rect(), isReadOnly() ? theme.window : theme.card, hasFocus());
    painter.end();
    QLineEdit::paintEvent(event);
}

} // namespace Kovrel
