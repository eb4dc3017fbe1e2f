#pragma once

#include "model/GrabFailure.h"
#include "platform/Reply.h"

#include <QImage>
#include <QRect>

#include <expected>

namespace Kovrel {

// Opaque pixels as Format_RGB32, windows as Format_ARGB32_Premultiplied; device pixel ratio 1.
using GrabbedImage = std::expected<QImage, GrabFailure>;

// The pixels of the screen.
class ScreenPixels {
public:
    enum class PointerOption { without, drawn };

    virtual ~ScreenPixels() = default;

    // A rectangle of root pixels, which may span displays. What lies on no display is black; a rectangle of which
    // nothing lies on a display is `noDisplay`.
    virtual void grab(QRect rootPixels, PointerOption pointer, Reply<GrabbedImage> reply) = 0;

    // Answers once the screen shows what was asked of it before: windows hidden by then are gone from the pixels.
    virtual void whenRepainted(Reply<bool> reply) = 0;
};

} // namespace Kovrel
