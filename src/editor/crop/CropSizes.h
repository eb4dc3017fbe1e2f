#pragma once

#include "editor/crop/CropOutputSize.h"
#include "model/Geometry.h"

#include <QRect>
#include <QStringView>

#include <array>
#include <optional>

namespace Kovrel {

// The arithmetic of a crop and of the sizes that are offered for it. Sizes are pixels.
//
// The size menu has a row with two fields, width and height, and a lock for the aspect. While it is locked, the field
// that was typed in last rules and the other one follows the crop's shape, also when the crop changes. Unlocked, both
// stand for themselves. Locking it again keeps the width. What is typed is a whole number; one out of bounds counts as
// the bound, anything else leaves the size as it is.
namespace CropSizes {

inline constexpr std::array fractions{1.0, 0.75, 0.5, 0.25};
// Sides of reductions don't get shorter.
inline constexpr int leastReducedSide = 8;
// Of typed sizes. A crop that is larger itself may be had as it is.
inline constexpr int longestTypedSide = 16384;
inline constexpr qint64 mostTypedPixels = 100'000'000;

// What a region of the canvas (points, origin bottom-left, y up) cuts out of an image of so many pixels, rounded
// outwards to whole ones, origin top-left. The region may be turned inside out. Empty where it misses the canvas.
QRect pixelRect(const Rect& region, Size canvasSize, double pixelsScale, QSize imagePixels);

// The sizes of the fractions, in their order.
std::array<QSize, fractions.size()> presets(QSize crop);

// The pixels of a choice: at least one, and no more than may be typed or the crop has. A choice that is too large keeps
// its shape.
QSize pixels(const CropOutputSize& choice, QSize crop);

// A number as people type it, also with blanks around it and "px" behind.
std::optional<int> typedSide(QStringView text);

// What a choice becomes when a number is typed into one of the fields.
CropOutputSize typedWidth(int width, const CropOutputSize& before, QSize crop, bool isAspectLocked);
CropOutputSize typedHeight(int height, const CropOutputSize& before, QSize crop, bool isAspectLocked);
// And when the lock is pressed.
CropOutputSize withAspectLock(bool isLocked, const CropOutputSize& before, QSize crop);
bool isAspectLocked(const CropOutputSize& choice);

} // namespace CropSizes

} // namespace Kovrel
