#include "platform/codecs/PngDecoder.h"

#include "platform/codecs/CodecLimits.h"

#include <QColorSpace>

#include <spng.h>

#include <memory>

namespace Kovrel {

namespace {

constexpr int bytesPerPixel = 8; // decoded, and half as much again for whoever looks at it in grey
constexpr size_t mostChunkBytes = size_t(64) << 20;

struct ContextDeleter {
    void operator()(spng_ctx* context) const { spng_ctx_free(context); }
};

using Context = std::unique_ptr<spng_ctx, ContextDeleter>;

std::unexpected<ImageCodec::Failure> failure(const char* reason)
{
    return std::unexpected(ImageCodec::Failure{"PNG: " + QString::fromUtf8(reason)});
}

bool hasAlpha(spng_ctx* context, const spng_ihdr& header)
{
    spng_trns transparency;
    return header.color_type == SPNG_COLOR_TYPE_TRUECOLOR_ALPHA ||
           header.color_type == SPNG_COLOR_TYPE_GRAYSCALE_ALPHA || spng_get_trns(context, &transparency) == 0;
}

void takeProfileAndDensity(spng_ctx* context, QImage& image)
{
    spng_iccp profile;
    if (spng_get_iccp(context, &profile) == 0)
        image.setColorSpace(QColorSpace::fromIccProfile(QByteArray(profile.profile, qsizetype(profile.profile_len))));
    uint8_t intent = 0;
    if (!image.colorSpace().isValid() && spng_get_srgb(context, &intent) == 0)
        image.setColorSpace(QColorSpace::SRgb);
    constexpr int metre = 1;
    spng_phys density;
    if (spng_get_phys(context, &density) == 0 && density.unit_specifier == metre) {
        image.setDotsPerMeterX(int(density.ppu_x));
        image.setDotsPerMeterY(int(density.ppu_y));
    }
}

} // namespace

bool PngDecoder::isPng(const QByteArray& data)
{
    return data.startsWith("\x89PNG\r\n\x1a\n");
}

std::expected<QImage, ImageCodec::Failure> PngDecoder::decode(const QByteArray& data)
{
    const Context context(spng_ctx_new(0));
    if (!context)
        return failure("out of memory");
    spng_set_chunk_limits(context.get(), mostChunkBytes, mostChunkBytes);
    spng_set_png_buffer(context.get(), data.constData(), size_t(data.size()));
    spng_ihdr header;
    if (const int error = spng_get_ihdr(context.get(), &header))
        return failure(spng_strerror(error));
    if (!CodecLimits::fits(header.width, header.height, bytesPerPixel))
        return failure("the picture is too large");

    QImage image(int(header.width), int(header.height), QImage::Format_RGBA8888);
    if (image.isNull())
        return failure("out of memory");
    int error =
        spng_decode_image(context.get(), image.bits(), size_t(image.sizeInBytes()), SPNG_FMT_RGBA8, SPNG_DECODE_TRNS);
    if (!error)
        error = spng_decode_chunks(context.get()); // the last pixels' checksum among them
    if (error)
        return failure(spng_strerror(error));
    takeProfileAndDensity(context.get(), image);
    image.convertTo(hasAlpha(context.get(), header) ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    return image;
}

} // namespace Kovrel
