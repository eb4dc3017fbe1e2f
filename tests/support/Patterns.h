#pragma once

#include <QImage>

namespace Kovrel::Testing {

// A picture in which every pixel tells its own place: red and the lower green bits are x, blue and the upper ones y.
// The unused byte is zero, as servers like to leave it.
inline QRgb patternAt(int x, int y)
{
    return QRgb((x & 0xff) << 16 | ((y >> 8) & 0xf) << 12 | ((x >> 8) & 0xf) << 8 | (y & 0xff));
}

inline QImage pattern(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            row[x] = patternAt(x, y);
    }
    return image;
}

} // namespace Kovrel::Testing
