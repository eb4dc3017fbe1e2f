#pragma once

#include "model/Geometry.h"

#include <QString>
#include <QTransform>

#include <vector>

namespace Kovrel {

// A piece of recognised text that is put into reading order.
struct TextFragment {
    QString text;
    Rect box;                             // pixels of the image, origin bottom-left, y up
    int row = 0;                          // within its column, from the top
    int column = 0;                       // of the page, in reading order
    int sourceIndex = 0;                  // of the line it came from
    std::vector<double> characterCenters; // as in OCRLine
    bool isQRCode = false;
    QTransform transform; // of a rotated fragment: from a rectangle of localSize at the origin to pixels of the image
    Size localSize;
    bool operator==(const TextFragment&) const = default;
};

} // namespace Kovrel
