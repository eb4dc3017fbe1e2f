#include "platform/codecs/PngStrips.h"

#include "platform/codecs/DeflateEnd.h"
#include "platform/codecs/PngFilter.h"

#include <libdeflate.h>

#include <atomic>
#include <future>
#include <memory>
#include <new>
#include <stdexcept>

namespace Kovrel {

namespace {

constexpr size_t mostStrips = 8;                    // more even the load of the threads out, and cost some compression
constexpr size_t smallestStrip = size_t(128) << 10; // bytes; smaller ones would compress badly
constexpr int usualLevel = 5;
// Little repeats in pictures: searching longer for it takes half as much time again and makes them a percent smaller.
constexpr int busyLevel = 4;
constexpr double busyCost = 1.0; // of a byte; most rows of windows and text stay below it
constexpr size_t padding = 8;    // in front of each row, for its filter

struct CompressorDeleter {
    void operator()(libdeflate_compressor* compressor) const { libdeflate_free_compressor(compressor); }
};

using Compressor = std::unique_ptr<libdeflate_compressor, CompressorDeleter>;

struct RowRange {
    int first = 0;
    int end = 0;
};

// What a thread needs to make strips, reused from one to the next.
class StripMaker {
public:
    explicit StripMaker(const PngPixels& pixels)
        : m_pixels(pixels),
          m_row(padding + pixels.bytesPerRow()),
          m_above(m_row.size()),
          m_usualCompressor(libdeflate_alloc_compressor(usualLevel)),
          m_busyCompressor(libdeflate_alloc_compressor(busyLevel))
    {
        if (!m_usualCompressor || !m_busyCompressor)
            throw std::bad_alloc();
    }

    PngStrip make(RowRange rows)
    {
        filter(rows);
        const bool isBusy = m_cost > busyCost * (rows.end - rows.first);
        PngStrip strip{compressed(isBusy ? m_busyCompressor : m_usualCompressor), m_filtered.size(),
                       libdeflate_adler32(1, m_filtered.data(), m_filtered.size())};
        const bool isLast = rows.end == m_pixels.height();
        if (!isLast && !makeContinuable(strip.deflated))
            throw std::runtime_error("the compressed pixels make no sense");
        return strip;
    }

private:
    void filter(RowRange rows)
    {
        const size_t size = m_pixels.bytesPerRow();
        m_filtered.resize(size_t(rows.end - rows.first) * (size + 1));
        uint8_t* out = m_filtered.data();
        m_cost = 0;
        if (rows.first > 0)
            m_pixels.readRow(rows.first - 1, m_above.data() + padding);
        for (int y = rows.first; y < rows.end; ++y, out += size + 1) {
            m_pixels.readRow(y, m_row.data() + padding);
            const PngRow row{m_row.data() + padding, m_above.data() + padding, size, m_pixels.bytesPerPixel()};
            const auto [filter, cost] = chooseFilter(row);
            m_cost += cost;
            *out = uint8_t(filter);
            applyFilter(filter, row, out + 1);
            std::swap(m_row, m_above);
        }
    }

    std::vector<uint8_t> compressed(const Compressor& compressor)
    {
        m_scratch.resize(libdeflate_deflate_compress_bound(compressor.get(), m_filtered.size()));
        const size_t size = libdeflate_deflate_compress(compressor.get(), m_filtered.data(), m_filtered.size(),
                                                        m_scratch.data(), m_scratch.size());
        return {m_scratch.data(), m_scratch.data() + size};
    }

    const PngPixels& m_pixels;
    std::vector<uint8_t> m_row;
    std::vector<uint8_t> m_above;
    std::vector<uint8_t> m_filtered;
    std::vector<uint8_t> m_scratch;
    double m_cost = 0; // of the rows of the strip, each that of a byte
    Compressor m_usualCompressor;
    Compressor m_busyCompressor;
};

size_t stripCount(const PngPixels& pixels)
{
    const size_t height = size_t(pixels.height());
    return std::clamp<size_t>(pixels.bytesPerRow() * height / smallestStrip, 1, std::min(mostStrips, height));
}

} // namespace

std::vector<PngStrip> makePngStrips(const PngPixels& pixels)
{
    std::vector<PngStrip> strips(stripCount(pixels));
    const auto rowAt = [&](size_t strip) { return int(size_t(pixels.height()) * strip / strips.size()); };
    std::atomic<size_t> next = 0;
    const auto work = [&] {
        StripMaker maker(pixels);
        for (size_t strip = next++; strip < strips.size(); strip = next++)
            strips[strip] = maker.make({rowAt(strip), rowAt(strip + 1)});
    };
    if (strips.size() == 1) {
        work();
        return strips;
    }
    auto other = std::async(std::launch::async, work);
    work();
    other.get();
    return strips;
}

} // namespace Kovrel
