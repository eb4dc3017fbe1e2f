#pragma once

#include <QColor>

namespace Kovrel {

// What lies on the picture of a card. It stands out from whatever is shown there, so it is the same in every colour
// scheme. Lengths are in points.
namespace CardTokens {

constexpr QColor scrim(0, 0, 0, 96); // over the picture while somebody looks
constexpr QColor glass(24, 24, 27, 214);
constexpr QColor glassHovered(64, 66, 74, 240);
constexpr QColor glassPressed(92, 95, 106, 250);
constexpr QColor glassEdge(255, 255, 255, 40);
constexpr QColor onGlass(255, 255, 255);
constexpr QColor done(0x6e, 0xe7, 0x9a);
constexpr QColor ring(255, 255, 255, 235);
constexpr QColor ringTrack(255, 255, 255, 64);

constexpr double button = 28;
constexpr double smallButton = 22;
constexpr double buttonGap = 6;
constexpr double inset = 8;          // from the picture's edge
constexpr double symbolShare = 0.46; // of a button
constexpr double badge = 20;
constexpr double ringWidth = 2;
constexpr double pillHeight = 22;
constexpr double pillPadding = 8;

} // namespace CardTokens

} // namespace Kovrel
