#include "ui/Label.h"

#include "ui/LookChanges.h"

#include <QPainter>
#include <QTextLayout>

#include <cmath>

namespace Kovrel {

Label::Label(TextStyle style, Role role)
{
    const auto takeFont = [this, style] { setFont(Typography::font(style)); };
    takeFont();
    connect(&LookChanges::shared(), &LookChanges::changed, this, takeFont);
    setForegroundRole(role == Role::secondary ? QPalette::PlaceholderText : QPalette::WindowText);
    setWordWrap(true);
    // By itself the toolkit goes by the direction of the text, not of the window.
    if (layoutDirection() == Qt::RightToLeft)
        setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
}

// The toolkit shifts each line that is read from the right by the blank at which it was broken, and cuts off its end.
void Label::paintEvent(QPaintEvent* event)
{
    if (!text().isRightToLeft() || textInteractionFlags().testFlag(Qt::TextSelectableByMouse))
        return QLabel::paintEvent(event);
    QTextOption option(alignment());
    option.setTextDirection(Qt::RightToLeft);
    QTextLayout layout(text(), font());
    layout.setTextOption(option);
    const QRectF place = contentsRect();
    double height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(place.width());
        line.setPosition({0, height});
        height += line.height();
    }
    layout.endLayout();
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const double room = place.height() - height;
    const double share = alignment().testFlag(Qt::AlignTop) ? 0 : alignment().testFlag(Qt::AlignBottom) ? 1 : 0.5;
    layout.draw(&painter, place.topLeft() + QPointF(0, std::round(room * share)));
}

} // namespace Kovrel
