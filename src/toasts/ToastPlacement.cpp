#include "toasts/ToastPlacement.h"

#include "ui/ScreenChrome.h"

#include <algorithm>

namespace Kovrel {

namespace {

constexpr Size cardSize{344, 64};
constexpr Size margin{12, 10}; // to the right and upper edges of the free area

} // namespace

Rect ToastPlacement::card(const Display& display, double fontScale)
{
    const Rect area = ScreenChrome::anchor(display);
    const double width = std::min(cardSize.width * fontScale, std::max(area.width - 2 * margin.width, 1.0));
    const double height = cardSize.height * fontScale;
    return {area.maxX() - margin.width - width, area.maxY() - margin.height - height, width, height};
}

} // namespace Kovrel
