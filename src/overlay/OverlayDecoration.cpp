#include "overlay/OverlayDecoration.h"

#include "overlay/OverlayMetrics.h"
#include "ui/tokens/OverlayTokens.h"

namespace Kovrel {

namespace {

// In points.
constexpr double areaLine = 1.5;
constexpr double windowLine = 3;

QRect grown(const QRect& rect, int by)
{
    return rect.adjusted(-by, -by, by, by);
}

} // namespace

int OverlayDecoration::lineWidth() const
{
    return OverlayMetrics::pixels(kind == Kind::areaFrame ? areaLine : windowLine, scale);
}

QRegion OverlayDecoration::region() const
{
    switch (kind) {
    case Kind::areaFrame:
    case Kind::windowFrame:
        return QRegion(grown(rect, lineWidth())) - rect;
    case Kind::guide:
        return grown(rect, 1);
    case Kind::handle:
        return rect;
    case Kind::sizeLabel:
    case Kind::hint:
    case Kind::colorLabel:
        return grown(rect, OverlayMetrics::pixels(OverlayTokens::pillShadowReach + 2, scale));
    case Kind::magnifier:
    case Kind::loupe:
        return grown(rect, OverlayMetrics::pixels(OverlayTokens::shadowReach + 2, scale));
    }
    Q_UNREACHABLE();
}

} // namespace Kovrel
