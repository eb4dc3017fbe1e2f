#pragma once

#include "model/MeasureUnit.h"
#include "overlay/OverlayScene.h"
#include "picking/measure/MeasureReading.h"
#include "platform/Display.h"

namespace Kovrel {

// What a display shows while it is measured: guides with ticks and lengths, or a rectangle with its size.
namespace MeasureScene {

// Of the display with the pointer; readings are in pixels of its picture.
struct Moment {
    std::optional<MeasureReading::Cross> cross;
    std::optional<QRect> rect; // dragged out: shown instead of the guides
    MeasureUnit unit = MeasureUnit::pixels;
    QString hint; // empty: none
};

OverlayScene of(const Display& display, const Moment& moment);

} // namespace MeasureScene

} // namespace Kovrel
