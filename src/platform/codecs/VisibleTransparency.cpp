#include "imaging/Simd.h"
#include "platform/ImageCodec.h"

namespace Kovrel {

namespace {

KOVREL_SIMD bool isOpaque(const QRgb* line, int width)
{
    QRgb common = 0xFF000000;
    for (int x = 0; x < width; ++x)
        common &= line[x];
    return common == 0xFF000000;
}

} // namespace

bool ImageCodec::hasVisibleTransparency(const QImage& image)
{
    if (!image.hasAlphaChannel())
        return false;
    const bool isWhole =
        image.format() == QImage::Format_ARGB32 || image.format() == QImage::Format_ARGB32_Premultiplied;
    const QImage pixels = isWhole ? image : image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < pixels.height(); ++y)
        if (!isOpaque(reinterpret_cast<const QRgb*>(pixels.constScanLine(y)), pixels.width()))
            return true;
    return false;
}

} // namespace Kovrel
