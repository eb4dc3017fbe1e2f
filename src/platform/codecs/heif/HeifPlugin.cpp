#include "platform/codecs/CodecLimits.h"
#include "platform/codecs/HeifCodec.h"
#include "platform/codecs/heif/ExifDensity.h"

#include <QColorSpace>

#include <libheif/heif_cxx.h>

namespace Kovrel {

namespace {

constexpr int bytesPerPixel = 12; // the stored planes, colours interleaved, and what is answered
constexpr double fullColourQuality = 0.9;
constexpr qsizetype exifPrefix = 4; // the offset of the block proper

std::unexpected<ImageCodec::Failure> failure(const std::string& reason)
{
    return std::unexpected(ImageCodec::Failure{"HEIC: " + QString::fromStdString(reason).simplified()});
}

class BytesWriter : public heif::Context::Writer {
public:
    heif_error write(const void* data, size_t size) override
    {
        bytes.append(static_cast<const char*>(data), qsizetype(size));
        return {heif_error_Ok, heif_suberror_Unspecified, "written"};
    }

    QByteArray bytes;
};

heif::Image toHeif(const QImage& image)
{
    const bool hasAlpha = ImageCodec::hasVisibleTransparency(image);
    const QImage pixels = image.convertToFormat(hasAlpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    heif::Image result;
    result.create(pixels.width(), pixels.height(), heif_colorspace_RGB,
                  hasAlpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB);
    result.add_plane(heif_channel_interleaved, pixels.width(), pixels.height(), 8);
    int stride = 0;
    uint8_t* const plane = result.get_plane(heif_channel_interleaved, &stride);
    for (int y = 0; y < pixels.height(); ++y)
        std::copy_n(pixels.constScanLine(y), pixels.width() * (pixels.depth() / 8), plane + qsizetype(y) * stride);
    if (image.colorSpace().isValid()) {
        const QByteArray profile = image.colorSpace().iccProfile();
        result.set_raw_color_profile(heif_color_profile_type_prof,
                                     std::vector<uint8_t>(profile.constBegin(), profile.constEnd()));
    }
    return result;
}

QImage pixelsOf(heif::ImageHandle& handle)
{
    const bool hasAlpha = handle.has_alpha_channel();
    const heif::Image decoded =
        handle.decode_image(heif_colorspace_RGB, hasAlpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB);
    int stride = 0;
    const uint8_t* const plane = decoded.get_plane(heif_channel_interleaved, &stride);
    const auto format = !hasAlpha                         ? QImage::Format_RGB888
                        : handle.is_premultiplied_alpha() ? QImage::Format_RGBA8888_Premultiplied
                                                          : QImage::Format_RGBA8888;
    const QImage lent(plane, decoded.get_width(heif_channel_interleaved), decoded.get_height(heif_channel_interleaved),
                      stride, format);
    return lent.convertToFormat(hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
}

void takeProfile(const heif::ImageHandle& handle, QImage& image)
{
    const heif_image_handle* const raw = handle.get_raw_image_handle();
    QByteArray profile(qsizetype(heif_image_handle_get_raw_color_profile_size(raw)), 0);
    if (!profile.isEmpty() && heif_image_handle_get_raw_color_profile(raw, profile.data()).code == heif_error_Ok)
        image.setColorSpace(QColorSpace::fromIccProfile(profile));
}

void takeDensity(const heif::ImageHandle& handle, QImage& image)
{
    for (const heif_item_id id : handle.get_list_of_metadata_block_IDs("Exif")) {
        const auto block = handle.get_metadata(id);
        const QByteArray bytes(reinterpret_cast<const char*>(block.data()), qsizetype(block.size()));
        ExifDensity::read(bytes.mid(exifPrefix), image);
    }
}

class HeifPlugin : public HeifCodec {
public:
    std::expected<QByteArray, ImageCodec::Failure> encode(const QImage& image, double quality) const override
    {
        try {
            heif::Context context;
            heif::Encoder encoder(heif_compression_HEVC);
            encoder.set_lossy_quality(qBound(1, qRound(quality * 100), 100));
            encoder.set_string_parameter("chroma", quality >= fullColourQuality ? "444" : "420");
            const heif::ImageHandle handle = context.encode_image(toHeif(image), encoder);
            const QByteArray density = ExifDensity::write(image);
            context.add_exif_metadata(handle, density.constData(), int(density.size()));
            BytesWriter writer;
            context.write(writer);
            return writer.bytes;
        } catch (const heif::Error& error) {
            return failure(error.get_message());
        }
    }

    std::expected<QImage, ImageCodec::Failure> decode(const QByteArray& data) const override
    {
        try {
            heif::Context context;
            context.read_from_memory_without_copy(data.constData(), size_t(data.size()));
            heif::ImageHandle handle = context.get_primary_image_handle();
            if (!CodecLimits::fits(handle.get_width(), handle.get_height(), bytesPerPixel))
                return failure("the picture is too large");
            QImage image = pixelsOf(handle);
            if (image.isNull())
                return failure("out of memory");
            takeProfile(handle, image);
            takeDensity(handle, image);
            return image;
        } catch (const heif::Error& error) {
            return failure(error.get_message());
        }
    }
};

} // namespace

extern "C" Q_DECL_EXPORT const HeifCodec* kovrelHeifCodec()
{
    static const HeifPlugin plugin;
    return &plugin;
}

} // namespace Kovrel
