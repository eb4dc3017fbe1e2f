#include "platform/ImageCodec.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>

namespace Kovrel {

namespace {

std::expected<QImage, ImageCodec::Failure> read(QImageReader& reader)
{
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    if (image.isNull())
        return std::unexpected(ImageCodec::Failure{reader.errorString()});
    return image;
}

} // namespace

std::expected<QByteArray, ImageCodec::Failure> ImageCodec::encode(const QImage& image, ImageFormat format,
                                                                  double quality)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, rawString(format).toLatin1());
    writer.setQuality(int(std::lround(quality * 100)));
    if (!writer.write(image))
        return std::unexpected(Failure{writer.errorString()});
    return buffer.data();
}

std::expected<QImage, ImageCodec::Failure> ImageCodec::decode(const QByteArray& data)
{
    QBuffer buffer;
    buffer.setData(data);
    QImageReader reader(&buffer);
    return read(reader);
}

std::expected<QImage, ImageCodec::Failure> ImageCodec::decodeFile(const QString& path)
{
    if (!QFileInfo(path).isFile())
        return std::unexpected(Failure{path + " is no file"});
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::unexpected(Failure{file.errorString()});
    return decode(file.readAll());
}

bool ImageCodec::hasVisibleTransparency(const QImage& image)
{
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; image.hasAlphaChannel() && y < pixels.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        if (std::any_of(row, row + pixels.width(), [](QRgb pixel) { return qAlpha(pixel) < 255; }))
            return true;
    }
    return false;
}

} // namespace Kovrel
