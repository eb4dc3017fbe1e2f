#include "ui/controls/ChoiceBox.h"

#include "ui/LookChanges.h"
#include "ui/controls/ChevronLine.h"
#include "ui/controls/ChoiceBoxAccessible.h"
#include "ui/controls/ChoiceRows.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>
#include <QWheelEvent>

namespace Kovrel {

namespace {

constexpr QSize padding(12, 7);
constexpr int chevronGap = 10;
constexpr int listFrame = 1;

} // namespace

ChoiceBox::ChoiceBox()
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setItemDelegate(new ChoiceRows(padding - QSize(listFrame, 0), this));
    ChoiceBoxAccessible::serve(*this);
    takeLook();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &ChoiceBox::takeLook);
}

void ChoiceBox::takeLook()
{
    setFont(Typography::font(TextStyle::control));
    setPalette(Theme::current().palette()); // of its list
    updateGeometry();
}

QSize ChoiceBox::sizeHint() const
{
    int width = 0;
    for (int index = 0; index < count(); ++index)
        width = std::max(width, fontMetrics().horizontalAdvance(itemText(index)));
    return QSize(width + chevronGap + ChevronLine::chevronSide, fontMetrics().height()) + 2 * padding;
}

void ChoiceBox::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double stroke = hasFocus() ? Stroke::focusRing : Stroke::hairline;
    painter.setPen(QPen(hasFocus() ? theme.focusRing : theme.separator, stroke));
    painter.setBrush(isEnabled() && underMouse() ? theme.hoverGround : theme.card);
    const double inset = stroke / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), Radius::control, Radius::control);
    const QColor color = isEnabled() ? theme.text : theme.disabledText;
    const QRect line = rect().adjusted(padding.width(), 0, -padding.width(), 0);
    ChevronLine::paint(painter, line, currentText(), color, "chevron.down", color, layoutDirection());
}

void ChoiceBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace Kovrel
