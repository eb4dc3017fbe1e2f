#include "cards/CardGesture.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

CardGesture::Kind CardGesture::of(QPointF way, PreviewPosition position)
{
    if (std::hypot(way.x(), way.y()) < threshold)
        return Kind::none;
    return way.x() * edge(position) > 1.5 * std::abs(way.y()) ? Kind::flick : Kind::dragOut;
}

double CardGesture::slide(QPointF way, PreviewPosition position)
{
    return std::max(way.x() * edge(position), 0.0) * edge(position);
}

} // namespace Kovrel
