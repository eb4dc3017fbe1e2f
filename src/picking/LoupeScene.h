#pragma once

#include "overlay/OverlayScene.h"
#include "platform/Display.h"

namespace Kovrel {

// What a display shows of the colour loupe: the plate with magnified pixels beside the pointer, and the colour's text.
namespace LoupeScene {

// How large a pixel is shown, from the least to the most.
inline constexpr int zooms = 5;
inline constexpr int usualZoom = 2;

// What is pointed at.
struct Moment {
    QPoint pointer; // root pixels
    int zoom = usualZoom;
    QString text;   // of the colour
    QString widest; // a text of this kind that takes most room: the label keeps its width
    QColor color;
};

// Of the display with the pointer; the others show nothing.
OverlayScene of(const Display& display, const Moment& moment);

} // namespace LoupeScene

} // namespace Kovrel
