#include "editorwindow/canvas/CanvasOverlay.h"

#include "editor/geometry/MarkFrame.h"
#include "editor/geometry/MarkHandles.h"
#include "ui/tokens/CanvasTokens.h"
#include "ui/tokens/Theme.h"

#include <QPainterPath>

#include <cmath>

namespace Kovrel {

namespace {

constexpr double handleSide = 9;
constexpr double turnDistance = 24;
constexpr double frameWidth = 1.25;
constexpr double caretWidth = 1.5;
constexpr double cropCorner = 18;
constexpr double smallestGridded = 8; // device pixels to a pixel of the capture

} // namespace

QRectF CanvasOverlay::inView(const Rect& rect) const
{
    return {m_viewport.fromImage({rect.minX(), rect.maxY()}), m_viewport.fromImage({rect.maxX(), rect.minY()})};
}

QPolygonF CanvasOverlay::frame(const Annotation& mark) const
{
    QPolygonF polygon;
    for (const QPointF corner : {QPointF(0, 0), QPointF(1, 0), QPointF(1, 1), QPointF(0, 1)})
        polygon << m_viewport.fromImage(MarkFrame::place(mark, corner.x(), corner.y()));
    return polygon;
}

// Seen on every ground: the accent within a fine white line.
void CanvasOverlay::strokeTwice(const QPolygonF& outline, bool isDashed)
{
    m_painter.setBrush(Qt::NoBrush);
    m_painter.setPen(QPen(CanvasTokens::halo, points(frameWidth + 1.5)));
    m_painter.drawPolygon(outline);
    m_painter.setPen(QPen(Theme::current().accent, points(frameWidth), isDashed ? Qt::DashLine : Qt::SolidLine));
    m_painter.drawPolygon(outline);
}

void CanvasOverlay::drawHandle(Point at, bool isRound)
{
    const QPointF middle = m_viewport.fromImage(at);
    const double side = points(handleSide);
    const QRectF rect(middle.x() - side / 2, middle.y() - side / 2, side, side);
    const double radius = isRound ? side / 2 : points(2);
    m_painter.setPen(QPen(Theme::current().accent, points(1.5)));
    m_painter.setBrush(CanvasTokens::handle);
    m_painter.drawRoundedRect(rect, radius, radius);
}

void CanvasOverlay::drawSelection(std::span<const Annotation> marks)
{
    const bool isAlone = marks.size() == 1;
    for (const Annotation& mark : marks)
        if (!mark.points.empty() && (!isAlone || MarkHandles::of(mark, 0).size() > 4))
            strokeTwice(frame(mark), !isAlone);
    if (marks.empty())
        return;
    Annotation held = marks.front();
    if (!isAlone) {
        const Rect bounds = MarkFrame::bounds(marks);
        held = {.kind = Annotation::Kind::pen,
                .points = {{bounds.minX(), bounds.minY()}, {bounds.maxX(), bounds.maxY()}}};
        strokeTwice(frame(held), false);
    }
    const double distance = turnDistance * m_viewport.imagePointsPerScreenPoint();
    for (const auto& place : MarkHandles::of(held, distance))
        drawHandle(place.at, MarkHandles::direction(place.handle) == Point());
}

void CanvasOverlay::drawHovered(const Annotation& mark)
{
    strokeTwice(frame(mark), false);
}

void CanvasOverlay::drawGuides(std::span<const Snapping::Guide> guides)
{
    for (const Snapping::Guide& guide : guides) {
        const QLineF line(m_viewport.fromImage(guide.from), m_viewport.fromImage(guide.to));
        m_painter.setPen(QPen(CanvasTokens::guide, points(1)));
        m_painter.drawLine(line);
        if (!guide.isGap)
            continue;
        const QLineF tick = QLineF(QPointF(), QPointF(points(4), 0)).translated(0, 0);
        const QPointF across = line.dx() == 0 ? tick.p2() : QPointF(0, tick.length());
        for (const QPointF end : {line.p1(), line.p2()})
            m_painter.drawLine(end - across, end + across);
    }
}

void CanvasOverlay::drawMarquee(const Rect& marquee)
{
    const QRectF rect = inView(marquee);
    QColor fill = Theme::current().accent;
    m_painter.setPen(QPen(fill, points(1)));
    fill.setAlphaF(0.15F);
    m_painter.setBrush(fill);
    m_painter.drawRect(rect);
}

void CanvasOverlay::hideOutside(const Rect& crop, const QColor& ground)
{
    QPainterPath outside;
    outside.addRect(QRectF(m_painter.viewport()));
    outside.addRect(inView(crop));
    m_painter.fillPath(outside, ground);
}

void CanvasOverlay::drawCrop(const Rect& crop, const Rect& canvas, bool isDragged)
{
    const QRectF inside = inView(crop);
    QPainterPath shade;
    shade.addRect(inView(canvas));
    shade.addRect(inside);
    m_painter.fillPath(shade, CanvasTokens::cropShade);
    m_painter.setBrush(Qt::NoBrush);
    if (isDragged) {
        m_painter.setPen(QPen(CanvasTokens::thirds, points(1)));
        for (const double share : {1.0 / 3, 2.0 / 3}) {
            const QPointF at(inside.left() + share * inside.width(), inside.top() + share * inside.height());
            m_painter.drawLine(QLineF(at.x(), inside.top(), at.x(), inside.bottom()));
            m_painter.drawLine(QLineF(inside.left(), at.y(), inside.right(), at.y()));
        }
    }
    m_painter.setPen(QPen(CanvasTokens::cropLine, points(1)));
    m_painter.drawRect(inside);
    m_painter.setPen(QPen(CanvasTokens::cropLine, points(4), Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    const double length = std::min({points(cropCorner), inside.width() / 2, inside.height() / 2});
    const auto corner = [&](QPointF at, double across, double down) {
        m_painter.drawPolyline(QPolygonF{at + QPointF(across * length, 0), at, at + QPointF(0, down * length)});
    };
    corner(inside.topLeft(), 1, 1);
    corner(inside.topRight(), -1, 1);
    corner(inside.bottomLeft(), 1, -1);
    corner(inside.bottomRight(), -1, -1);
}

void CanvasOverlay::drawWriting(const Annotation& label, const QLineF& caret, std::span<const QRectF> selection,
                                bool isCaretShown)
{
    strokeTwice(frame(label), true);
    const Point centre = label.textRect().centre();
    const auto turned = [&](QPointF point) {
        return m_viewport.fromImage(MarkFrame::turned({point.x(), point.y()}, centre, label.rotation));
    };
    QColor fill = Theme::current().accent;
    fill.setAlphaF(0.35F);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(fill);
    for (const QRectF& rect : selection)
        m_painter.drawPolygon(QPolygonF{turned(rect.topLeft()), turned(rect.topRight()), turned(rect.bottomRight()),
                                        turned(rect.bottomLeft())});
    if (!isCaretShown)
        return;
    m_painter.setPen(QPen(CanvasTokens::halo, points(caretWidth + 1.5)));
    m_painter.drawLine(turned(caret.p1()), turned(caret.p2()));
    m_painter.setPen(QPen(Theme::current().accent, points(caretWidth)));
    m_painter.drawLine(turned(caret.p1()), turned(caret.p2()));
}

void CanvasOverlay::drawFound(std::span<const Rect> boxes, std::span<const Rect> now)
{
    const auto draw = [this](const Rect& box, const QColor& color) {
        const double room = points(2);
        m_painter.setBrush(color);
        m_painter.drawRoundedRect(inView(box).adjusted(-room, -room, room, room), room, room);
    };
    m_painter.setPen(Qt::NoPen);
    for (const Rect& box : boxes)
        draw(box, CanvasTokens::found);
    m_painter.setPen(QPen(CanvasTokens::foundEdge, points(1.5)));
    for (const Rect& box : now)
        draw(box, CanvasTokens::foundNow);
}

void CanvasOverlay::drawPixelGrid(const QRectF& canvas)
{
    if (m_viewport.zoom() < smallestGridded)
        return;
    const QRectF seen(m_viewport.toCanvas(QPointF()),
                      m_viewport.toCanvas(QPointF(m_painter.viewport().width(), m_painter.viewport().height())));
    const QRectF part = canvas & seen;
    m_painter.setPen(QPen(CanvasTokens::pixelGrid, 1));
    for (int x = int(std::ceil(part.left())); x <= part.right(); ++x)
        m_painter.drawLine(m_viewport.toView(QPointF(x, part.top())), m_viewport.toView(QPointF(x, part.bottom())));
    for (int y = int(std::ceil(part.top())); y <= part.bottom(); ++y)
        m_painter.drawLine(m_viewport.toView(QPointF(part.left(), y)), m_viewport.toView(QPointF(part.right(), y)));
}

} // namespace Kovrel
