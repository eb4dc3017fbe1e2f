#pragma once

#include "capture/OverlayScene.h"

#include <QPainter>

namespace Kovrel {

// How the decorations of the selection look. The painter's coordinates are root pixels.
namespace OverlayPainter {

// What everything that is not selected is covered with.
QColor shade();

// Of a label or hint with this text, without its shadow, in pixels.
QSize pillSize(OverlayScene::Decoration::Kind kind, const QString& text, double scale);

// `screen` is what the display of `screenRect` showed, for the magnifier; null: nothing can be magnified.
void draw(QPainter& painter, const OverlayScene::Decoration& decoration, const QImage& screen, const QRect& screenRect);

} // namespace OverlayPainter

} // namespace Kovrel
