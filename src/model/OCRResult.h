#pragma once

#include "model/Geometry.h"
#include "model/RecognitionFailure.h"

#include <QString>

#include <expected>
#include <optional>
#include <vector>

namespace Kovrel {

// A line that lies visibly rotated. Points of the image, each axis from 0 to 1, origin bottom-left; the fourth corner
// is xEnd + yEnd - origin.
struct OCRQuad {
    Point origin; // bottom-left corner of the text
    Point xEnd;   // bottom-right
    Point yEnd;   // top-left
    bool operator==(const OCRQuad&) const = default;
};

// A line of text in an image. Coordinates as in OCRQuad.
struct OCRLine {
    QString text;         // without white space at its ends, never empty
    float confidence = 0; // 0 to 1
    Rect boundingBox;
    std::vector<double> characterCenters; // x of each grapheme's centre; empty where they are not known
    bool isQRCode = false;
    std::optional<OCRQuad> quad; // of visibly rotated lines only
    bool operator==(const OCRLine&) const = default;
};

// The text of an image.
struct OCRResult {
    QString fullText;           // all lines, joined in reading order
    std::vector<OCRLine> lines; // in the same order
    bool isOriented = false;    // most of the text is rotated
    bool operator==(const OCRResult&) const = default;
};

using OCROutcome = std::expected<OCRResult, RecognitionFailure>;

} // namespace Kovrel
