#include "pins/PinFace.h"

#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/OverlayTokens.h"

#include <QPainter>
#include <QPainterPath>

namespace Kovrel {

namespace {

using PinGeometry::Button;

constexpr double disc = 24;
constexpr double symbol = 10;

QRectF around(QPointF centre, double size)
{
    return {centre.x() - size / 2, centre.y() - size / 2, size, size};
}

const char* symbolOf(Button button)
{
    if (button == Button::close)
        return "xmark";
    return button == Button::unpin ? "pin.slash" : "pencil";
}

} // namespace

// As a brush, whose edge is smooth where a clip's would not be.
void PinFace::paintPicture(QPainter& painter, const QRectF& card, const QImage& picture, QSizeF size, double radius)
{
    QRectF place(QPointF(), size);
    place.moveCenter(card.center());
    QBrush brush(picture);
    brush.setTransform(QTransform::fromTranslate(place.x(), place.y())
                           .scale(place.width() / picture.width(), place.height() / picture.height()));
    QPainterPath corners;
    corners.addRoundedRect(card, radius, radius);
    QPainterPath whole;
    whole.addRect(place);
    const bool isWhole = place.contains(card);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillPath(isWhole ? corners : corners.intersected(whole), brush);
}

void PinFace::paintButton(QPainter& painter, const QRectF& card, Button button, bool isUnderPointer)
{
    const QPointF centre = card.topLeft() + PinGeometry::buttonSquare(card.size(), button).center();
    painter.setPen(QPen(OverlayTokens::pillEdge, Stroke::hairline));
    painter.setBrush(isUnderPointer ? OverlayTokens::accent : OverlayTokens::pill);
    painter.drawEllipse(around(centre, disc));
    Symbols::paint(painter, symbolOf(button), around(centre, symbol), OverlayTokens::pillText);
}

} // namespace Kovrel
