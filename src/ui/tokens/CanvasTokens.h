#pragma once

#include <QColor>

#include <array>

namespace Kovrel {

// Colours of what lies over a picture that is edited: they are seen on every ground.
namespace CanvasTokens {

inline constexpr QColor halo(255, 255, 255, 200); // around lines in the accent
inline constexpr QColor handle(255, 255, 255);
inline constexpr QColor guide(255, 45, 135);
inline constexpr QColor cropShade(0, 0, 0, 130);
inline constexpr QColor cropLine(255, 255, 255);
inline constexpr QColor thirds(255, 255, 255, 120);
inline constexpr QColor pixelGrid(128, 128, 128, 90);
inline constexpr QColor found(255, 214, 10, 100); // text that somebody looks for
inline constexpr QColor foundNow(255, 140, 0, 95);
inline constexpr QColor foundEdge(200, 90, 0);

// What marks are offered, as hex strings; names are the user interface's.
inline constexpr std::array markColors{"#FF3B30", "#FF9500", "#FFDC2C", "#34C759", "#00C7BE",
                                       "#2F6BFF", "#AF52DE", "#FF2D87", "#FFFFFF", "#1C1C1E"};

} // namespace CanvasTokens

} // namespace Kovrel
