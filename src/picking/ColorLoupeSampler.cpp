#include "picking/ColorLoupeSampler.h"

#include "model/HexColor.h"

#include <QColorSpace>

namespace Kovrel {

namespace {

QImage inSrgb(QImage pixel)
{
    const QColorSpace srgb(QColorSpace::SRgb);
    if (pixel.colorSpace().isValid() && pixel.colorSpace() != srgb)
        pixel.convertToColorSpace(srgb);
    return pixel;
}

} // namespace

std::optional<QString> ColorLoupeSampler::hex(const QImage& of, int x, int y)
{
    if (!of.valid(x, y))
        return std::nullopt;
    const QImage pixel = inSrgb(of.copy(x, y, 1, 1)).convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const uchar* const bytes = pixel.constScanLine(0);
    return HexColor::text(QColor(bytes[0], bytes[1], bytes[2]));
}

} // namespace Kovrel
