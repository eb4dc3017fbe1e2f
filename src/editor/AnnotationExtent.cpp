#include "editor/AnnotationExtent.h"

#include "editor/AnnotationInk.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

// How far ink reaches around the points, in image points, at most.
double reach(const Annotation& mark)
{
    const double width = mark.lineWidth;
    switch (mark.kind) {
    case Kind::highlighter:
        return 3.25 * std::max(width, 1.0) * std::max(mark.tipScale, 1.0);
    case Kind::arrow:
        // Half the width of a head, which is at most as long as 4.3 line widths or 14 points, and no wider than that.
        return std::max({4.3 * width * mark.tipScale, 14 * mark.tipScale, 2 * width, 4.0});
    case Kind::step:
        return (width * 2.4 + 3.4) * 1.12 + 2;
    case Kind::measure:
        // The badge: a number of at most ten digits.
        return 200 + 12 * width;
    default:
        return 1 + 2 * width;
    }
}

QRectF around(QPointF centre, double radius)
{
    return {centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius};
}

// However it is turned. A label grows from its points by what its text takes at most: a line for each character.
QRectF turnedBound(const Annotation& mark, QRectF box)
{
    if (mark.kind == Kind::text) {
        const double size = mark.fontSize;
        const double width = std::max(box.width(), 12 * size);
        const double height = std::max(box.height(), 2 * size * double(mark.text.size() + 2));
        box = QRectF(box.left() - size, box.top() - height - size, width + 2 * size, box.height() + 2 * height + size);
    }
    if (mark.rotation == 0 || !mark.isRotatable())
        return box;
    return around(box.center(), std::hypot(box.width(), box.height()));
}

} // namespace

QRectF AnnotationExtent::pointsBox(const Annotation& mark)
{
    if (mark.points.empty())
        return {};
    const auto [left, right] = std::ranges::minmax(mark.points, {}, &Point::x);
    const auto [lower, upper] = std::ranges::minmax(mark.points, {}, &Point::y);
    return {QPointF(left.x, lower.y), QPointF(right.x, upper.y)};
}

QRectF AnnotationExtent::visualExtent(const Annotation& mark, double scale)
{
    return AnnotationInk::isDrawable(mark, scale) ? AnnotationInk::inkPath(mark, scale).boundingRect() : QRectF();
}

QRectF AnnotationExtent::rotatedVisualExtent(const Annotation& mark, double scale)
{
    if (!AnnotationInk::isDrawable(mark, scale))
        return {};
    return AnnotationInk::rotation(mark, scale).map(AnnotationInk::inkPath(mark, scale)).boundingRect();
}

QRectF AnnotationExtent::cullBound(const Annotation& mark, double scale)
{
    if (!AnnotationInk::isDrawable(mark, scale))
        return {};
    QRectF box = pointsBox(mark);
    if (mark.curveControl)
        box |= QRectF(AnnotationInk::scaled(*mark.curveControl, 1), QSizeF(1e-9, 1e-9));
    const double margin = reach(mark) + 1;
    box = turnedBound(mark, box).adjusted(-margin, -margin, margin, margin);
    return {box.left() * scale, box.top() * scale, box.width() * scale, box.height() * scale};
}

} // namespace Kovrel
