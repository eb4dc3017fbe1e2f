#pragma once

#include <QImage>

namespace Kovrel {

// How much of nothing an image has around what it shows: rows and columns at its sides that are transparent, or of the
// colour of its upper left pixel. Image points or pixels, as the user of it says.
struct BackdropMargins {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    bool operator==(const BackdropMargins&) const = default;

    BackdropMargins scaled(double factor) const;

    // In pixels. All zero for an image that is nothing but margin. A look at every pixel of the margins, so it is done
    // once for an image, not for each redraw. Any thread.
    static BackdropMargins measured(const QImage& image);
};

} // namespace Kovrel
