#pragma once

#include "overlay/OverlayDecoration.h"
#include "platform/Display.h"

#include <QFont>
#include <QSize>

namespace Kovrel {

// The sizes that a scene is laid out with and its decorations are drawn with.
namespace OverlayMetrics {

// A length in points as whole pixels, at least one.
int pixels(double points, double scale);

QFont pillFont(OverlayDecoration::Kind kind, double scale);
// Of a label or hint with this text, without its shadow, in pixels.
QSize pillSize(OverlayDecoration::Kind kind, const QString& text, double scale);
// What the swatch before a colour's text takes of the pill's width.
double swatchWidth(double scale);

// A hint near the lower edge of a display.
OverlayDecoration hint(const QString& text, const Display& display);

} // namespace OverlayMetrics

} // namespace Kovrel
