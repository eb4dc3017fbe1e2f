#include "editor/crop/CropShapes.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Kovrel {

Rect CropShapes::onPixels(const Rect& crop, const Rect& canvas, double scale)
{
    const auto side = [scale](double low, double high, double most) {
        const double from = std::clamp(std::round(low * scale), 0.0, std::round(most * scale) - 1);
        const double to = std::clamp(std::round(high * scale), from + 1, std::round(most * scale));
        return std::pair(from / scale, to / scale);
    };
    const auto [left, right] = side(crop.minX(), crop.maxX(), canvas.width);
    const auto [lower, upper] = side(crop.minY(), crop.maxY(), canvas.height);
    return {left, lower, right - left, upper - lower};
}

Rect CropShapes::shaped(const Rect& crop, const Rect& canvas, double aspect, double scale)
{
    const double sameArea = std::sqrt(crop.width * crop.height * aspect);
    const double width = std::min({sameArea, canvas.width, canvas.height * aspect});
    const double height = width / aspect;
    const Point middle = crop.centre();
    return onPixels({std::clamp(middle.x - width / 2, 0.0, canvas.width - width),
                     std::clamp(middle.y - height / 2, 0.0, canvas.height - height), width, height},
                    canvas, scale);
}

} // namespace Kovrel
