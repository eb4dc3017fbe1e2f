#include "overlay/SelectionCursor.h"

#include "ui/tokens/OverlayTokens.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace Kovrel {

namespace {

constexpr double crosshairReach = 12; // points from the middle to each end
constexpr double crosshairGap = 3;
constexpr double cameraSize = 28;

QImage canvas(int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QPainterPath cameraBody()
{
    QPainterPath body;
    body.addRoundedRect(QRectF(3, 8, 22, 15), 3.5, 3.5);
    QPainterPath hump;
    hump.addRoundedRect(QRectF(10, 5, 8, 6), 2, 2);
    QPainterPath lens;
    lens.addEllipse(QPointF(14, 15.5), 4.6, 4.6);
    QPainterPath glass;
    glass.addEllipse(QPointF(14, 15.5), 2.4, 2.4);
    return body.united(hump).subtracted(lens).united(glass);
}

} // namespace

// Black lines on a white edge can be seen on every ground. The line is a whole number of pixels, centred on a pixel.
OverlayCursor SelectionCursor::crosshair(double scale)
{
    const int reach = int(std::lround(crosshairReach * scale));
    const int gap = int(std::lround(crosshairGap * scale));
    const int half = std::max(0, int(std::lround((scale - 1) / 2))); // beside the pixel in the middle
    const int edge = std::max(1, int(std::lround(scale)));
    const int middle = reach + edge;
    OverlayCursor cursor{canvas(2 * middle + 1), {middle, middle}};
    QPainter painter(&cursor.image);
    const int thickness = 2 * half + 1;
    const QRect arms[] = {{middle - half, middle - reach, thickness, reach - gap},
                          {middle - half, middle + gap + 1, thickness, reach - gap},
                          {middle - reach, middle - half, reach - gap, thickness},
                          {middle + gap + 1, middle - half, reach - gap, thickness}};
    for (const QRect& arm : arms)
        painter.fillRect(arm.adjusted(-edge, -edge, edge, edge), OverlayTokens::cursorEdge);
    for (const QRect& arm : arms)
        painter.fillRect(arm, OverlayTokens::crosshair);
    return cursor;
}

OverlayCursor SelectionCursor::camera(double scale)
{
    const int side = int(std::ceil(cameraSize * scale));
    OverlayCursor cursor{canvas(side), {side / 2, int(15.5 * scale)}};
    QPainter painter(&cursor.image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    const QPainterPath body = cameraBody();
    painter.strokePath(body, QPen(OverlayTokens::cursorEdge, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(body, OverlayTokens::camera);
    return cursor;
}

} // namespace Kovrel
