#pragma once

#include "overlay/OverlayDecoration.h"

#include <QFont>
#include <QSize>

namespace Kovrel {

// The sizes that a scene is laid out with and its decorations are drawn with.
namespace OverlayMetrics {

inline constexpr int magnifierReach = 7; // pixels on each side of the one in the middle

// A length in points as whole pixels, at least one.
int pixels(double points, double scale);

QFont pillFont(OverlayDecoration::Kind kind, double scale);
// Of a label or hint with this text, without its shadow, in pixels.
QSize pillSize(OverlayDecoration::Kind kind, const QString& text, double scale);

} // namespace OverlayMetrics

} // namespace Kovrel
