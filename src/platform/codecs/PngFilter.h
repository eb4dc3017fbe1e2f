#pragma once

#include <cstddef>
#include <cstdint>

namespace Kovrel {

// PNG's row filters: each byte is replaced by its difference from a guess.
enum class PngFilter : uint8_t { none = 0, sub = 1, up = 2, paeth = 4 };

// A row of pixel bytes and the one above it (zeros above the first). The `pixel` bytes in front of both are readable
// and zero.
struct PngRow {
    const uint8_t* bytes;
    const uint8_t* above;
    size_t size;
    size_t pixel; // bytes of one pixel
};

struct PngFilterChoice {
    PngFilter filter = PngFilter::up;
    double cost = 0; // what a byte will cost with it, on a scale from 0 to 20
};

// The filter that promises the smallest output, judged by samples of the row.
PngFilterChoice chooseFilter(const PngRow& row);

void applyFilter(PngFilter filter, const PngRow& row, uint8_t* out);

} // namespace Kovrel
