#include "editor/marks/MeasureInk.h"

#include "model/text/MeasureText.h"

#include "editor/marks/AnnotationInk.h"
#include "editor/marks/LabelSizes.h"
#include "editor/marks/LabelText.h"

#include <QPainter>
#include <QPainterPathStroker>

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

// Image points.
constexpr double badgeFontSize = 12;
constexpr double badgeSide = 7;
constexpr double badgeUpper = 3;
constexpr double besideLine = 6;

double lineWidth(const Annotation& measure)
{
    return std::max(measure.lineWidth, 1.0);
}

double fontSize(const Annotation& measure)
{
    return badgeFontSize + lineWidth(measure);
}

double tickLength(const Annotation& measure)
{
    return 6 + 3 * lineWidth(measure);
}

QPointF acrossLine(const Annotation& measure)
{
    const Point& from = measure.points.front();
    const Point& to = measure.points.back();
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    return length > 0 ? QPointF(from.y - to.y, to.x - from.x) / length : QPointF(0, 1);
}

QPainterPath lines(const Annotation& measure, double scale)
{
    const QPointF from = AnnotationInk::scaled(measure.points.front(), scale);
    const QPointF to = AnnotationInk::scaled(measure.points.back(), scale);
    const QPointF tick = acrossLine(measure) * (tickLength(measure) * scale / 2);
    QPainterPath path(from);
    path.lineTo(to);
    for (const QPointF& end : {from, to}) {
        path.moveTo(end - tick);
        path.lineTo(end + tick);
    }
    return path;
}

QPainterPath lineInk(const Annotation& measure, double scale)
{
    const QPen pen(Qt::black, lineWidth(measure) * scale, Qt::SolidLine, Qt::FlatCap);
    QPainterPath ink = QPainterPathStroker(pen).createStroke(lines(measure, scale));
    ink.setFillRule(Qt::WindingFill);
    return ink;
}

QPainterPath badge(const Annotation& measure, double scale, const MeasureInk::Reading& reading)
{
    const QRectF rect = MeasureInk::measureBadgeRect(measure, scale, reading);
    QPainterPath path;
    path.addRoundedRect(rect, rect.height() / 2, rect.height() / 2);
    return path;
}

Size padded(Size text)
{
    return {text.width + 2 * badgeSide, text.height + 2 * badgeUpper};
}

Rect around(QPointF centre, Size size)
{
    return {centre.x() - size.width / 2, centre.y() - size.height / 2, size.width, size.height};
}

Rect middleRect(const Annotation& measure, Size badge)
{
    const Point middle = *measure.segmentMidpoint();
    return around({middle.x, middle.y}, badge);
}

// On the upper side of the line.
Rect besideRect(const Annotation& measure, Size badge)
{
    const Point middle = *measure.segmentMidpoint();
    const QPointF across = acrossLine(measure);
    const double away = std::abs(across.x()) * badge.width / 2 + std::abs(across.y()) * badge.height / 2 +
                        tickLength(measure) / 2 + besideLine;
    return around(QPointF(middle.x, middle.y) + (across.y() < 0 ? -across : across) * away, badge);
}

} // namespace

QString MeasureInk::badgeText(const Annotation& measure, const Reading& reading)
{
    const Rect box = measure.boundingRect();
    const double points = std::hypot(box.width, box.height);
    return MeasureText::length(points * reading.pixelsToPoint, reading.unit, reading.pixelsToPoint);
}

QRectF MeasureInk::measureBadgeRect(const Annotation& measure, double scale, const Reading& reading)
{
    const Size text = LabelSizes::of(badgeText(measure, reading), fontSize(measure), std::nullopt);
    const Size badge = padded(text);
    const Rect box = measure.boundingRect();
    const QPointF across = acrossLine(measure);
    // How much of the line the badge would cover, by the direction in which the line runs.
    const double covered = std::abs(across.y()) * badge.width + std::abs(across.x()) * badge.height;
    const bool isBeside = std::hypot(box.width, box.height) < covered + 2 * besideLine;
    return AnnotationInk::scaled(isBeside ? besideRect(measure, badge) : middleRect(measure, badge), scale);
}

QRectF MeasureInk::badgeBound(const Annotation& measure)
{
    // A digit is 0.65 em wide, and a scale above 4 adds none to a length that matters.
    const Rect box = measure.boundingRect();
    const double characters = 5 + std::log10(1 + 4 * std::hypot(box.width, box.height));
    const Size badge = padded({0.7 * characters * fontSize(measure), 1.3 * fontSize(measure)});
    return AnnotationInk::scaled(middleRect(measure, badge), 1) | AnnotationInk::scaled(besideRect(measure, badge), 1);
}

void MeasureInk::drawMeasure(QPainter& painter, const Annotation& measure, double scale, const Reading& reading)
{
    const QColor color = AnnotationInk::colorOf(measure);
    painter.fillPath(lineInk(measure, scale), color);
    painter.fillPath(badge(measure, scale, reading), color);
    const QRectF rect = measureBadgeRect(measure, scale, reading);
    const LabelText text(badgeText(measure, reading), fontSize(measure), std::nullopt);
    text.draw(painter, {rect.left() + badgeSide * scale, rect.bottom() - badgeUpper * scale}, scale,
              textColorOn(color));
}

QPainterPath MeasureInk::inkPath(const Annotation& measure, double scale, const Reading& reading)
{
    QPainterPath path = lineInk(measure, scale);
    path.addPath(badge(measure, scale, reading));
    return path;
}

} // namespace Kovrel
