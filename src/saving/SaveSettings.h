#pragma once

#include "model/ImageFormat.h"

#include <QString>

namespace Kovrel {

// What the user chose about saved files, as it was when a save began: taken on the main thread, used on any.
struct SaveSettings {
    bool formatAuto = false; // the format follows the picture
    ImageFormat format = ImageFormat::png;
    double quality = 0.9;       // 0 to 1, for jpeg and heic
    bool downscale = false;     // one pixel for each point
    double mainScreenScale = 2; // stands in for a capture whose scale is not known
    QString fileNameTemplate = "Screenshot %Y-%m-%d at %H.%M.%S";
    QString folder; // absolute

    bool operator==(const SaveSettings&) const = default;
};

} // namespace Kovrel
