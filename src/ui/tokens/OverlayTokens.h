#pragma once

#include <QColor>

namespace Kovrel {

// What lies over the user's screen while something is selected. It stands out from whatever is shown there, so it is
// the same in every colour scheme. Lengths are in points.
namespace OverlayTokens {

constexpr QColor shade(0, 0, 0, 112); // over everything that is not selected
constexpr QColor accent(0x2f, 0x6b, 0xff);
constexpr QColor guideEdge(255, 255, 255, 140);
constexpr QColor knob(255, 255, 255);

constexpr QColor pill(24, 24, 27, 230);
constexpr QColor pillEdge(255, 255, 255, 46);
constexpr QColor pillText(255, 255, 255);
constexpr QColor swatchEdge(255, 255, 255, 150);
constexpr QColor shadowLayer(0, 0, 0, 5);

constexpr QColor magnifierGround(24, 24, 27); // beyond the edge of the display
constexpr QColor magnifierGrid(128, 128, 128, 56);
constexpr QColor magnifierRim(255, 255, 255, 220);
constexpr QColor magnifierRimEdge(0, 0, 0, 90); // a hairline around the rim
constexpr QColor pixelMark(255, 255, 255);
constexpr QColor pixelMarkEdge(0, 0, 0, 160);

constexpr QColor crosshair(0, 0, 0);
constexpr QColor camera(20, 20, 22);
constexpr QColor cursorEdge(255, 255, 255);

constexpr double labelText = 12;
constexpr double hintText = 13;
constexpr double labelPadding = 9;
constexpr double hintPadding = 16;
constexpr double labelHeight = 24;
constexpr double hintHeight = 36;
constexpr double hintFromBottom = 64;
constexpr double swatch = 12;
constexpr double swatchGap = 6;
constexpr double magnifierRadius = 12;
constexpr double line = 1.5;
constexpr double loupeRim = 3;
constexpr int shadowReach = 12; // of what is large
constexpr int pillShadowReach = 8;

} // namespace OverlayTokens

} // namespace Kovrel
