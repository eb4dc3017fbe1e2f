#pragma once

#include <QImage>

#include <string>

namespace Kovrel::Testing {

// Compares without the unused byte; says the first pixel that is wrong, or nothing.
inline std::string firstDifference(const QImage& image, const QImage& expected)
{
    if (image.size() != expected.size())
        return "size " + std::to_string(image.width()) + "x" + std::to_string(image.height());
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < rgb.height(); ++y)
        for (int x = 0; x < rgb.width(); ++x)
            if ((rgb.pixel(x, y) ^ expected.pixel(x, y)) & 0xffffff)
                return "pixel " + std::to_string(x) + "," + std::to_string(y);
    return "";
}

} // namespace Kovrel::Testing
