#include "recognition/GreyPicture.h"

#include <algorithm>

namespace Kovrel {

namespace {

QImage blank(QSize size)
{
    return QImage(size, QImage::Format_Grayscale8);
}

uchar brightness(QRgb pixel)
{
    return uchar((306 * uint(qRed(pixel)) + 601 * uint(qGreen(pixel)) + 117 * uint(qBlue(pixel)) + 512) >> 10);
}

uchar brightnessOverWhite(QRgb pixel)
{
    const uint alpha = uint(qAlpha(pixel));
    return uchar((brightness(pixel) * alpha + 255 * (255 - alpha) + 127) / 255);
}

// The place of a neighbour, or of the edge.
int within(int place, int length)
{
    return std::clamp(place, 0, length - 1);
}

// Where the pixels of an enlarged axis lie between those of the original, in parts of `2 * factor`.
struct Between {
    int before = 0;
    int after = 0;
    int weightOfAfter = 0;
};

std::vector<Between> betweens(int length, int factor)
{
    std::vector<Between> all;
    for (int place = 0; place < length * factor; ++place) {
        const int doubled = 2 * place + 1 + factor; // of the centre, one pixel further than it is
        const int before = doubled / (2 * factor) - 1;
        all.push_back({within(before, length), within(before + 1, length), doubled % (2 * factor)});
    }
    return all;
}

} // namespace

QImage GreyPicture::of(const QImage& image)
{
    if (image.format() == QImage::Format_Grayscale8)
        return image;
    const QImage colours = image.hasAlphaChannel() ? image.convertToFormat(QImage::Format_ARGB32)
                                                   : image.convertToFormat(QImage::Format_RGB32);
    const auto toGrey = image.hasAlphaChannel() ? brightnessOverWhite : brightness;
    QImage grey = blank(image.size());
    for (int y = 0; y < grey.height() && !colours.isNull(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(colours.constScanLine(y));
        std::transform(from, from + grey.width(), grey.scanLine(y), toGrey);
    }
    return colours.isNull() ? QImage() : grey;
}

QImage GreyPicture::view(const QImage& grey, const QRect& pixels)
{
    return QImage(grey.constScanLine(pixels.y()) + pixels.x(), pixels.width(), pixels.height(), grey.bytesPerLine(),
                  QImage::Format_Grayscale8);
}

QImage GreyPicture::halved(const QImage& grey)
{
    QImage result = blank(grey.size() / 2);
    for (int y = 0; y < result.height(); ++y) {
        const uchar* upper = grey.constScanLine(2 * y);
        const uchar* lower = grey.constScanLine(2 * y + 1);
        uchar* to = result.scanLine(y);
        for (int x = 0; x < result.width(); ++x)
            to[x] = uchar((upper[2 * x] + upper[2 * x + 1] + lower[2 * x] + lower[2 * x + 1] + 2) / 4);
    }
    return result;
}

QImage GreyPicture::enlarged(const QImage& grey, int factor)
{
    QImage result = blank(grey.size() * factor);
    const auto columns = betweens(grey.width(), factor);
    const auto rows = betweens(grey.height(), factor);
    const int whole = 2 * factor;
    std::vector<int> row(size_t(grey.width()));
    for (int y = 0; y < result.height(); ++y) {
        const Between& at = rows[size_t(y)];
        const uchar* upper = grey.constScanLine(at.before);
        const uchar* lower = grey.constScanLine(at.after);
        for (size_t x = 0; x < row.size(); ++x)
            row[x] = upper[x] * (whole - at.weightOfAfter) + lower[x] * at.weightOfAfter;
        uchar* to = result.scanLine(y);
        for (const Between& column : columns)
            *to++ = uchar((row[size_t(column.before)] * (whole - column.weightOfAfter) +
                           row[size_t(column.after)] * column.weightOfAfter) /
                          (whole * whole));
    }
    return result;
}

QImage GreyPicture::softened(const QImage& grey)
{
    QImage result = blank(grey.size());
    const int width = grey.width();
    std::vector<int> sums; // of three pixels above each other
    sums.resize(size_t(width));
    for (int y = 0; y < result.height(); ++y) {
        const uchar* upper = grey.constScanLine(within(y - 1, grey.height()));
        const uchar* middle = grey.constScanLine(y);
        const uchar* lower = grey.constScanLine(within(y + 1, grey.height()));
        for (size_t x = 0; x < sums.size(); ++x)
            sums[x] = upper[x] + middle[x] + lower[x];
        uchar* to = result.scanLine(y);
        for (int x = 0; x < width; ++x)
            to[x] =
                uchar((sums[size_t(within(x - 1, width))] + sums[size_t(x)] + sums[size_t(within(x + 1, width))]) / 9);
    }
    return result;
}

QImage GreyPicture::sharpened(const QImage& grey, const QImage& soft)
{
    QImage result = blank(soft.size());
    for (int y = 0; y < result.height(); ++y)
        std::transform(grey.constScanLine(y), grey.constScanLine(y) + grey.width(), soft.constScanLine(y),
                       result.scanLine(y),
                       [](uchar sharp, uchar mean) { return uchar(within(2 * sharp - mean, 256)); });
    return result;
}

QImage GreyPicture::inverted(const QImage& grey)
{
    QImage result = grey.copy();
    result.invertPixels();
    return result;
}

} // namespace Kovrel
