#pragma once

#include "model/Geometry.h"

#include <QString>

namespace Kovrel {

// A code found in an image.
struct QRCode {
    QString payload;  // the decoded text
    Rect boundingBox; // each axis of the image from 0 to 1, origin bottom-left
    bool operator==(const QRCode&) const = default;
};

} // namespace Kovrel
