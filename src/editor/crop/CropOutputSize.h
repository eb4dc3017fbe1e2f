#pragma once

#include <QSize>

namespace Kovrel {

// How large the user wants the cropped picture to be.
struct CropOutputSize {
    enum class Kind {
        fraction, // a share of the crop's own size
        width,    // so wide, and as high as the crop's shape asks for
        height,   // so high, and as wide as the crop's shape asks for
        free,     // so wide and so high, whatever becomes of the shape
    };

    Kind kind = Kind::fraction;
    double fraction = 1; // for `fraction` alone
    int width = 0;       // pixels, for `width` and `free`
    int height = 0;      // pixels, for `height` and `free`
    bool operator==(const CropOutputSize&) const = default;

    static CropOutputSize ofFraction(double fraction) { return {.kind = Kind::fraction, .fraction = fraction}; }

    static CropOutputSize ofWidth(int width) { return {.kind = Kind::width, .width = width}; }

    static CropOutputSize ofHeight(int height) { return {.kind = Kind::height, .height = height}; }

    static CropOutputSize ofFree(QSize size)
    {
        return {.kind = Kind::free, .width = size.width(), .height = size.height()};
    }
};

} // namespace Kovrel
