#include "tests/support/TestPictures.h"

namespace Kovrel::Testing {

namespace {

QRgb pixelOf(Texture texture, int x, int y, QRandomGenerator& random)
{
    switch (texture) {
    case Texture::noise:
        return random.generate();
    case Texture::fewColours:
        return qRgb(random.bounded(3) * 100, 40, random.bounded(2) * 200);
    case Texture::blocks:
        return ((x / 9 + y / 5) % 3) * 0x503010 + (x / 31) * 7;
    case Texture::gradient:
        return qRgb(x * 3 & 0xFF, y * 2 & 0xFF, (x + y) & 0xFF);
    case Texture::flat:
        return 0x336699;
    }
    Q_UNREACHABLE();
}

} // namespace

QImage testPicture(QSize size, Texture texture, quint32 seed)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(seed);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, pixelOf(texture, x, y, random) | 0xFF000000);
    return image;
}

QImage translucent(QImage image, quint32 seed)
{
    image.convertTo(QImage::Format_ARGB32);
    QRandomGenerator random(seed);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, (image.pixel(x, y) & 0xFFFFFF) | quint32(random.bounded(256)) << 24);
    image.setPixel(0, 0, image.pixel(0, 0) & 0x7FFFFFFF);
    return image;
}

} // namespace Kovrel::Testing
