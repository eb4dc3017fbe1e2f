#include "editorwindow/backdrop/DisclosureButton.h"

#include "ui/controls/ChevronLine.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr QSize padding(4, 5);

} // namespace

DisclosureButton::DisclosureButton(const QString& title) : Button(title)
{
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(title);
    tell();
}

QSize DisclosureButton::sizeHint() const
{
    const QFontMetrics metrics(Typography::font(TextStyle::control));
    return QSize(metrics.horizontalAdvance(text()) + Spacing::small + ChevronLine::chevronSide, metrics.height()) +
           2 * padding;
}

void DisclosureButton::checkStateSet()
{
    tell();
}

void DisclosureButton::nextCheckState()
{
    Button::nextCheckState();
    tell();
}

void DisclosureButton::tell()
{
    setAccessibleDescription(isChecked() ? tr("unfolded") : tr("folded"));
}

void DisclosureButton::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    paintGround(painter, ofState(Qt::transparent, theme.hoverGround, theme.pressedGround), theme.focusRing);
    const QRect line = rect().adjusted(padding.width(), 0, -padding.width(), 0);
    painter.setFont(Typography::font(TextStyle::control));
    const QString onwards = isRightToLeft() ? "chevron.left" : "chevron.right";
    ChevronLine::paint(painter, line, text(), theme.text, isChecked() ? "chevron.down" : onwards, theme.secondaryText,
                       layoutDirection());
}

} // namespace Kovrel
