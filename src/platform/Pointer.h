#pragma once

#include "model/Geometry.h"
#include "platform/Reply.h"

#include <QImage>
#include <QPoint>

#include <optional>

namespace Kovrel {

struct PointerPosition {
    QPoint rootPixel;
    Point point; // global points
    quint32 displayID = 0;
};

struct PointerImage {
    QImage image;   // premultiplied
    QPoint topLeft; // root pixel of the image's first pixel: the hot spot is accounted for
};

// The mouse pointer. A desktop may refuse to tell: then there is no value.
class Pointer {
public:
    virtual ~Pointer() = default;
    virtual void position(Reply<std::optional<PointerPosition>> reply) = 0;
    virtual void image(Reply<std::optional<PointerImage>> reply) = 0;
};

} // namespace Kovrel
