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

void CanvasOverlay::lay(const QPainterPath& path, const QPen& pen, const QBrush& brush)
{
    const double margin = pen.widthF() + 1; // with the corners of its joins
    m_area += path.boundingRect().adjusted(-margin, -margin, margin, margin).toAlignedRect();
    if (!m_painter)
        return;
    m_painter->setPen(pen);
    m_painter->setBrush(brush);
    m_painter->drawPath(path);
}

void CanvasOverlay::drawLine(QPointF from, QPointF to, const QPen& pen)
{
    QPainterPath line(from);
    line.lineTo(to);
    lay(line, pen);
}

// Seen on every ground: the accent within a fine white line.
void CanvasOverlay::strokeTwice(const QPolygonF& outline, bool isDashed)
{
    QPainterPath path;
    path.addPolygon(outline);
    path.closeSubpath();
    lay(path, QPen(CanvasTokens::halo, points(frameWidth + 1.5)));
    lay(path, QPen(Theme::current().accent, points(frameWidth), isDashed ? Qt::DashLine : Qt::SolidLine));
}

void CanvasOverlay::drawHandle(Point at, bool isRound)
{
    const QPointF middle = m_viewport.fromImage(at);
    const double side = points(handleSide);
    const double radius = isRound ? side / 2 : points(2);
    QPainterPath path;
    path.addRoundedRect(QRectF(middle.x() - side / 2, middle.y() - side / 2, side, side), radius, radius);
    lay(path, QPen(Theme::current().accent, points(1.5)), CanvasTokens::handle);
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
    const QPen pen(CanvasTokens::guide, points(1));
    for (const Snapping::Guide& guide : guides) {
        const QLineF line(m_viewport.fromImage(guide.from), m_viewport.fromImage(guide.to));
        drawLine(line.p1(), line.p2(), pen);
        if (!guide.isGap)
            continue;
        const double tick = points(4);
        const QPointF across = line.dx() == 0 ? QPointF(tick, 0) : QPointF(0, tick);
        for (const QPointF end : {line.p1(), line.p2()})
            drawLine(end - across, end + across, pen);
    }
}

void CanvasOverlay::drawMarquee(const Rect& marquee)
{
    QPainterPath path;
    path.addRect(inView(marquee));
    QColor fill = Theme::current().accent;
    fill.setAlphaF(0.15F);
    lay(path, QPen(Theme::current().accent, points(1)), fill);
}

void CanvasOverlay::hideOutside(const Rect& crop, const QColor& ground)
{
    if (!m_painter)
        return;
    QPainterPath outside;
    outside.addRect(QRectF(m_painter->viewport()));
    outside.addRect(inView(crop));
    m_painter->fillPath(outside, ground);
}

void CanvasOverlay::drawCrop(const Rect& crop, const Rect& canvas, bool isDragged)
{
    const QRectF inside = inView(crop);
    QPainterPath shade;
    shade.addRect(inView(canvas));
    shade.addRect(inside);
    lay(shade, Qt::NoPen, CanvasTokens::cropShade);
    const QPen thirds(CanvasTokens::thirds, points(1));
    for (const double share : {1.0 / 3, 2.0 / 3}) {
        if (!isDragged)
            break;
        const QPointF at(inside.left() + share * inside.width(), inside.top() + share * inside.height());
        drawLine({at.x(), inside.top()}, {at.x(), inside.bottom()}, thirds);
        drawLine({inside.left(), at.y()}, {inside.right(), at.y()}, thirds);
    }
    QPainterPath frame;
    frame.addRect(inside);
    lay(frame, QPen(CanvasTokens::cropLine, points(1)));
    const double length = std::min({points(cropCorner), inside.width() / 2, inside.height() / 2});
    const auto corner = [&](QPointF at, double across, double down) {
        QPainterPath path(at + QPointF(across * length, 0));
        path.lineTo(at);
        path.lineTo(at + QPointF(0, down * length));
        lay(path, QPen(CanvasTokens::cropLine, points(4), Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
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
    for (const QRectF& rect : selection) {
        QPainterPath path;
        path.addPolygon(QPolygonF{turned(rect.topLeft()), turned(rect.topRight()), turned(rect.bottomRight()),
                                  turned(rect.bottomLeft())});
        lay(path, Qt::NoPen, fill);
    }
    if (!isCaretShown)
        return;
    drawLine(turned(caret.p1()), turned(caret.p2()), QPen(CanvasTokens::halo, points(caretWidth + 1.5)));
    drawLine(turned(caret.p1()), turned(caret.p2()), QPen(Theme::current().accent, points(caretWidth)));
}

void CanvasOverlay::drawFound(std::span<const Rect> boxes, std::span<const Rect> now)
{
    const auto draw = [this](const Rect& box, const QPen& pen, const QColor& color) {
        const double room = points(2);
        QPainterPath path;
        path.addRoundedRect(inView(box).adjusted(-room, -room, room, room), room, room);
        lay(path, pen, color);
    };
    for (const Rect& box : boxes)
        draw(box, Qt::NoPen, CanvasTokens::found);
    for (const Rect& box : now)
        draw(box, QPen(CanvasTokens::foundEdge, points(1.5)), CanvasTokens::foundNow);
}

void CanvasOverlay::drawPixelGrid(const QRectF& canvas)
{
    if (!m_painter || m_viewport.zoom() < smallestGridded)
        return;
    const QRectF seen(m_viewport.toCanvas(QPointF()),
                      m_viewport.toCanvas(QPointF(m_painter->viewport().width(), m_painter->viewport().height())));
    const QRectF part = canvas & seen;
    m_painter->setPen(QPen(CanvasTokens::pixelGrid, 1));
    for (int x = int(std::ceil(part.left())); x <= part.right(); ++x)
        m_painter->drawLine(m_viewport.toView(QPointF(x, part.top())), m_viewport.toView(QPointF(x, part.bottom())));
    for (int y = int(std::ceil(part.top())); y <= part.bottom(); ++y)
        m_painter->drawLine(m_viewport.toView(QPointF(part.left(), y)), m_viewport.toView(QPointF(part.right(), y)));
}

} // namespace Kovrel
