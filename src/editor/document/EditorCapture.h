#pragma once

#include "model/CaptureSubject.h"
#include "model/Geometry.h"

#include <QImage>
#include <QUuid>

#include <optional>

namespace Kovrel {

// The capture that is edited, as it was taken.
struct EditorCapture {
    QUuid id;
    QImage image;
    double scale = 1; // pixels of an image point
    std::optional<CaptureSubject> subject;

    // In image points, origin lower left.
    Rect canvas() const { return {0, 0, image.width() / scale, image.height() / scale}; }
};

} // namespace Kovrel
