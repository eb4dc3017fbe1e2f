#pragma once

#include <QImage>
#include <QRectF>
#include <QString>

#include <expected>
#include <vector>

namespace Kovrel {

// Finds QR codes in a picture. Any thread, several at once; a picture takes some milliseconds for each megapixel.
class CodeReader {
public:
    // Two programs that look in different ways, so that each finds some codes that the other misses.
    enum class Engine { zxing, zbar };

    struct Code {
        QString payload; // text: what is none is left out
        QRectF box;      // pixels of the picture, origin top-left
    };

    using Outcome = std::expected<std::vector<Code>, QString>; // the failure is one line, for people

    virtual ~CodeReader() = default;
    // Dark codes on a lighter ground in a picture of Format_Grayscale8.
    virtual Outcome read(const QImage& grey, Engine engine) const = 0;
};

} // namespace Kovrel
