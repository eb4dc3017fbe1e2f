#include "platform/codecs/PngFilter.h"

#include "imaging/Simd.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace Kovrel {

namespace {

// Half of each row is looked at; a row of a screen rarely changes its nature within a few pixels.
constexpr size_t sampleSize = 64;
constexpr size_t sampleStride = 128;

KOVREL_SIMD_PART uint8_t paeth(int left, int up, int corner)
{
    const int16_t toLeft = int16_t(std::abs(up - corner));
    const int16_t toUp = int16_t(std::abs(left - corner));
    const int16_t toCorner = int16_t(std::abs(left + up - 2 * corner));
    const int16_t upOrCorner = toUp <= toCorner ? int16_t(up) : int16_t(corner);
    return uint8_t(toLeft <= toUp && toLeft <= toCorner ? int16_t(left) : upOrCorner);
}

KOVREL_SIMD void paethRow(const PngRow& row, uint8_t* __restrict out)
{
    const uint8_t* bytes = row.bytes;
    const uint8_t* above = row.above;
    const uint8_t* left = bytes - row.pixel;
    const uint8_t* corner = above - row.pixel;
    for (size_t index = 0; index < row.size; ++index)
        out[index] = uint8_t(bytes[index] - paeth(left[index], above[index], corner[index]));
}

KOVREL_SIMD void differences(const uint8_t* bytes, const uint8_t* guess, size_t size, uint8_t* __restrict out)
{
    for (size_t index = 0; index < size; ++index)
        out[index] = uint8_t(bytes[index] - guess[index]);
}

// What a byte costs once it is compressed, roughly: a zero next to nothing, anything else a lot, and large differences
// somewhat more than small ones, as those come in more kinds.
KOVREL_SIMD_PART unsigned cost(uint8_t difference)
{
    const uint8_t magnitude = std::min<uint8_t>(difference, uint8_t(-difference));
    return uint8_t(magnitude / 8 + (difference != 0 ? 4 : 0));
}

constexpr unsigned costOfNewByte = 10; // of a byte that is left as it is and differs from its neighbour's

struct Costs {
    unsigned none;
    unsigned sub;
    unsigned up;
    unsigned paeth;
};

KOVREL_SIMD void addCosts(const PngRow& row, size_t from, size_t to, Costs& costs)
{
    const uint8_t* bytes = row.bytes;
    const uint8_t* above = row.above;
    const uint8_t* left = bytes - row.pixel;
    const uint8_t* corner = above - row.pixel;
    unsigned none = 0;
    unsigned sub = 0;
    unsigned up = 0;
    unsigned predicted = 0;
    for (size_t index = from; index < to; ++index) {
        const uint8_t byte = bytes[index];
        none += byte != left[index] ? costOfNewByte : 0;
        sub += cost(uint8_t(byte - left[index]));
        up += cost(uint8_t(byte - above[index]));
        predicted += cost(uint8_t(byte - paeth(left[index], above[index], corner[index])));
    }
    costs.none += none;
    costs.sub += sub;
    costs.up += up;
    costs.paeth += predicted;
}

} // namespace

PngFilterChoice chooseFilter(const PngRow& row)
{
    if (std::memcmp(row.bytes, row.above, row.size) == 0)
        return {PngFilter::up, 0};
    Costs costs{};
    size_t sampled = 0;
    for (size_t from = 0; from < row.size; from += sampleStride) {
        const size_t to = std::min(from + sampleSize, row.size);
        addCosts(row, from, to, costs);
        sampled += to - from;
    }
    const std::array all{std::pair{costs.none, PngFilter::none}, std::pair{costs.sub, PngFilter::sub},
                         std::pair{costs.up, PngFilter::up}, std::pair{costs.paeth, PngFilter::paeth}};
    const auto [cost, filter] = std::ranges::min(all);
    return {filter, double(cost) / double(sampled)};
}

void applyFilter(PngFilter filter, const PngRow& row, uint8_t* out)
{
    switch (filter) {
    case PngFilter::none:
        std::memcpy(out, row.bytes, row.size);
        break;
    case PngFilter::sub:
        differences(row.bytes, row.bytes - row.pixel, row.size, out);
        break;
    case PngFilter::up:
        differences(row.bytes, row.above, row.size, out);
        break;
    case PngFilter::paeth:
        paethRow(row, out);
        break;
    }
}

} // namespace Kovrel
