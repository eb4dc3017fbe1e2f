#pragma once

#include <QtGlobal>

namespace Kovrel::CodecLimits {

// What reading one picture may take, so that a small file cannot take all memory.
constexpr qint64 mostBytes = 1'000'000'000;
constexpr qint64 mostFileBytes = mostBytes / 2;

// `bytesPerPixel` counts all copies that are alive at the same time.
constexpr bool fits(qint64 width, qint64 height, int bytesPerPixel)
{
    const qint64 mostPixels = mostBytes / bytesPerPixel;
    return width > 0 && height > 0 && width <= mostPixels && height <= mostPixels / width;
}

} // namespace Kovrel::CodecLimits
