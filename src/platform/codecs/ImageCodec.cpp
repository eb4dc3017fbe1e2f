#include "platform/ImageCodec.h"

#include "platform/codecs/CodecLimits.h"
#include "platform/codecs/HeifCodec.h"
#include "platform/codecs/JpegEncoder.h"
#include "platform/codecs/PngDecoder.h"
#include "platform/codecs/PngEncoder.h"
#include "platform/codecs/TiffEncoder.h"
#include "platform/files/RegularFile.h"
#include "platform/plugins/Plugins.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QImageReader>

#include <tiffio.h>
#include <unistd.h>

#include <mutex>

namespace Kovrel {

namespace {

using ImageCodec::Failure;

std::expected<const HeifCodec*, Failure> heifCodec()
{
    static const auto function = Plugins::find("heif", "kovrelHeifCodec");
    if (!function)
        return std::unexpected(Failure{function.error()});
    return reinterpret_cast<HeifCodecFunction>(*function)();
}

std::expected<QByteArray, Failure> encodeHeif(const QImage& image, double quality)
{
    const auto codec = heifCodec();
    if (!codec)
        return std::unexpected(codec.error());
    return (*codec)->encode(image, quality);
}

std::expected<QImage, Failure> decodeHeif(const QByteArray& data)
{
    const auto codec = heifCodec();
    if (!codec)
        return std::unexpected(codec.error());
    return (*codec)->decode(data);
}

bool isHeif(const QByteArray& data)
{
    return data.mid(4, 4) == "ftyp";
}

QImage withPlainPixels(QImage image)
{
    image.convertTo(ImageCodec::hasVisibleTransparency(image) ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
    return image;
}

// Of what the reader decodes to, perhaps turned, and of what is answered.
int bytesPerPixel(const QImageReader& reader)
{
    constexpr int answered = 4;
    if (!reader.size().isValid()) // of a damaged file the format must not even be asked: it is whatever is in memory
        return 2 * answered;
    return answered + qMax(QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel() / 8, answered);
}

void prepareToolkit()
{
    QImageReader::setAllocationLimit(int(CodecLimits::mostBytes >> 20));
    // Damaged files would fill the log; that they are damaged is answered.
    TIFFSetWarningHandler(nullptr);
    TIFFSetErrorHandler(nullptr);
}

// The other formats, by the toolkit's readers. Drawings, which have no pixels of their own, are not pictures here.
std::expected<QImage, Failure> decodeWithToolkit(const QByteArray& data)
{
    static std::once_flag once;
    std::call_once(once, prepareToolkit);
    static const QByteArrayList pictures{"jpeg", "tiff", "gif", "bmp", "webp"};
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    if (!pictures.contains(reader.format()))
        return std::unexpected(
            Failure{QCoreApplication::translate("ImageCodec", "This is no picture that Kovrel can read.")});
    if (!CodecLimits::fits(reader.size().width(), reader.size().height(), bytesPerPixel(reader)))
        return std::unexpected(
            Failure{QCoreApplication::translate("ImageCodec", "The picture is damaged or too large.")});
    QImage image;
    if (!reader.read(&image))
        return std::unexpected(Failure{
            QCoreApplication::translate("ImageCodec", "The picture cannot be read: %1").arg(reader.errorString())});
    image = withPlainPixels(std::move(image));
    if (image.isNull())
        return std::unexpected(Failure{QCoreApplication::translate("ImageCodec", "There is not enough memory.")});
    return image;
}

} // namespace

std::expected<QByteArray, Failure> ImageCodec::encode(const QImage& image, ImageFormat format, double quality)
{
    if (image.isNull())
        return std::unexpected(Failure{QCoreApplication::translate("ImageCodec", "There is no picture to encode.")});
    switch (format) {
    case ImageFormat::png:
        return PngEncoder::encode(image);
    case ImageFormat::jpeg:
        return JpegEncoder::encode(image, quality);
    case ImageFormat::heic:
        return encodeHeif(image, quality);
    case ImageFormat::tiff:
        return TiffEncoder::encode(image);
    }
    Q_UNREACHABLE();
}

std::expected<QImage, Failure> ImageCodec::decode(const QByteArray& data)
{
    if (PngDecoder::isPng(data))
        return PngDecoder::decode(data);
    if (isHeif(data))
        return decodeHeif(data);
    return decodeWithToolkit(data);
}

std::expected<QImage, Failure> ImageCodec::decodeFile(const QString& path)
{
    const auto data = RegularFile::read(path, CodecLimits::mostFileBytes);
    if (!data)
        return std::unexpected(Failure{data.error()});
    return decode(*data);
}

} // namespace Kovrel
