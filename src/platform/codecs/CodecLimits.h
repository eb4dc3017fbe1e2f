#pragma once

#include <QtGlobal>

namespace Kovrel::CodecLimits {

// Of a picture that is decoded, so that a file cannot take all memory.
constexpr qint64 mostPixels = 500'000'000;
constexpr qint64 mostFileBytes = 2'000'000'000;
constexpr int mostMegabytes = int(mostPixels * 8 / 1'000'000); // up to 16 bits for each colour while decoding

constexpr bool fits(qint64 width, qint64 height)
{
    return width > 0 && height > 0 && width <= mostPixels && height <= mostPixels / width;
}

} // namespace Kovrel::CodecLimits
