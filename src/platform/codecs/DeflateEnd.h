#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace Kovrel {

// Where a raw deflate stream ends. Its maker does not tell, and the parts of a picture that were compressed apart can
// only be joined when the last block of each loses its "final" bit.
struct DeflateEnd {
    size_t finalBlockBit = 0; // position of the last block's "final" bit
    size_t endBit = 0;        // one behind the last bit of the stream

    // Walks over the symbols without decompressing. Nothing for a stream that is cut off or no deflate stream.
    static std::optional<DeflateEnd> find(std::span<const uint8_t> stream);
};

// Makes a complete raw deflate stream one that another one may follow: clears the "final" bit and adds an empty stored
// block, which ends on a byte. False when it is no complete stream.
bool makeContinuable(std::vector<uint8_t>& stream);

} // namespace Kovrel
