#include "editorwindow/backdrop/DisclosureButton.h"

#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr QSize padding(4, 5);
constexpr int chevronSide = 9;

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
    return QSize(metrics.horizontalAdvance(text()) + Spacing::small + chevronSide, metrics.height()) + 2 * padding;
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
    painter.setPen(theme.text);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, text());
    const QRectF chevron(line.right() - chevronSide + 1, line.center().y() - chevronSide / 2.0, chevronSide,
                         chevronSide);
    Symbols::paint(painter, isChecked() ? "chevron.down" : "chevron.right", chevron, theme.secondaryText);
}

} // namespace Kovrel
