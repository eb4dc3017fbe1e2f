#include "platform/codecs/PngEncoder.h"

#include "platform/Guarded.h"
#include "platform/codecs/PngChunks.h"
#include "platform/codecs/PngStrips.h"

#include <QColorSpace>

#include <zlib.h>

#include <numeric>

namespace Kovrel {

namespace {

constexpr size_t sizeOfTheRest = 4096; // of a file without its pixels, roughly

void addHeader(PngChunks& chunks, const QImage& image, PngPixels::Layout layout)
{
    chunks.add("IHDR", [&](PngChunks::Chunk& chunk) {
        chunk.number(uint32_t(image.width())).number(uint32_t(image.height()));
        chunk.byte(8).byte(unsigned(layout)).byte(0).byte(0).byte(0);
    });
}

// An ICC profile is compressed as a zlib stream.
void addProfile(PngChunks& chunks, const QByteArray& profile)
{
    const QByteArray deflated = qCompress(profile).mid(4); // without the size that Qt puts in front
    chunks.add("iCCP", [&](PngChunks::Chunk& chunk) {
        chunk.bytes(QByteArrayLiteral("ICC profile")).byte(0).byte(0).bytes(deflated);
    });
}

void addDensity(PngChunks& chunks, const QImage& image)
{
    constexpr unsigned metre = 1;
    chunks.add("pHYs", [&](PngChunks::Chunk& chunk) {
        chunk.number(uint32_t(image.dotsPerMeterX())).number(uint32_t(image.dotsPerMeterY())).byte(metre);
    });
}

// One zlib stream; each strip is a chunk.
void addStrips(PngChunks& chunks, const std::vector<PngStrip>& strips)
{
    uLong adler = 1;
    for (size_t index = 0; index < strips.size(); ++index) {
        const PngStrip& strip = strips[index];
        adler = adler32_combine(adler, strip.adler, z_off_t(strip.rawSize));
        chunks.add("IDAT", [&](PngChunks::Chunk& chunk) {
            if (index == 0)
                chunk.byte(0x78).byte(0x9C); // deflate with a window of 32 KB, the usual effort
            chunk.bytes(strip.deflated);
            if (index + 1 == strips.size())
                chunk.number(uint32_t(adler));
        });
    }
}

QByteArray encoded(const QImage& image)
{
    const PngPixels pixels(image);
    const auto strips = makePngStrips(pixels);
    PngChunks chunks(std::accumulate(strips.begin(), strips.end(), sizeOfTheRest,
                                     [](size_t sum, const PngStrip& strip) { return sum + strip.deflated.size(); }));
    addHeader(chunks, image, pixels.layout());
    if (image.colorSpace().isValid())
        addProfile(chunks, image.colorSpace().iccProfile());
    if (pixels.layout() == PngPixels::Layout::palette)
        chunks.add("PLTE", [&](PngChunks::Chunk& chunk) { chunk.bytes(pixels.palette()); });
    if (image.dotsPerMeterX() > 0 && image.dotsPerMeterY() > 0)
        addDensity(chunks, image);
    addStrips(chunks, strips);
    chunks.add("IEND", [](PngChunks::Chunk&) {});
    return std::move(chunks).file();
}

} // namespace

std::expected<QByteArray, ImageCodec::Failure> PngEncoder::encode(const QImage& image)
{
    if (image.isNull())
        return std::unexpected(ImageCodec::Failure{"There is no picture to encode."});
    try {
        return encoded(image);
    } catch (...) {
        return std::unexpected(ImageCodec::Failure{"PNG: " + Guarded::reason()});
    }
}

} // namespace Kovrel
