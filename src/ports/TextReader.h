#pragma once

#include "model/OCRResult.h"
#include "model/QRCode.h"
#include "platform/Reply.h"
#include "platform/Workers.h"

#include <QDateTime>
#include <QImage>

#include <stop_token>
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
    // `stop`: nobody wants the answer any more; it comes all the same, and early.
    virtual void read(QImage image, double pixelScale, std::stop_token stop, Reply<Reading> reply) = 0;
    // The text alone; `corrected`: with the help of dictionaries. What nobody waits for gives way to everything else.
    virtual void readText(QImage image, QualityOfService qos, bool corrected, std::stop_token stop,
                          Reply<OCROutcome> reply) = 0;

    // When what text is read with, its models and the program behind them, came onto this computer last, or its
    // languages were chosen; invalid where that is not known. Loads what reads.
    virtual void modelsChanged(Reply<QDateTime> reply) { reply({}); }

    // The codes alone, for nobody who waits; nothing where they can't be looked for.
    virtual void readCodes(QImage image, Reply<std::optional<std::vector<QRCode>>> reply) = 0;
};

} // namespace Kovrel
