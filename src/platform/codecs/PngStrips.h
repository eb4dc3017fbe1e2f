#pragma once

#include "platform/codecs/PngPixels.h"

#include <cstdint>
#include <vector>

namespace Kovrel {

// A run of rows, filtered and compressed. All strips of a picture joined are one raw deflate stream.
struct PngStrip {
    std::vector<uint8_t> deflated;
    size_t rawSize = 0;
    uint32_t adler = 1; // of the raw bytes
};

// On the calling thread and one more. Throws what a lack of memory or of threads throws.
std::vector<PngStrip> makePngStrips(const PngPixels& pixels);

} // namespace Kovrel
