#pragma once

#include "model/OCRResult.h"
#include "model/QRCode.h"
#include "platform/Reply.h"

#include <QImage>

#include <vector>

namespace Kovrel {

// Reads the text and the codes in a picture. Main thread; the work is done elsewhere.
class TextReader {
public:
    struct Reading {
        OCRResult text;            // in reading order
        std::vector<QRCode> codes; // likewise
        QString failure = {};      // why something could not be read, in one line for people
    };

    virtual ~TextReader() = default;
    // A picture is likely to come in a moment: loads what takes time.
    virtual void expectReading() = 0;
    virtual void read(QImage image, double pixelScale, Reply<Reading> reply) = 0;
};

} // namespace Kovrel
