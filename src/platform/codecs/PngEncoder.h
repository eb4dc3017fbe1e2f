#pragma once

#include "platform/ImageCodec.h"

namespace Kovrel {

// PNG files for pictures of screens: a quarter of the usual time, and no larger. Safe on any thread; uses the calling
// thread and one more.
//
// Opaque pictures are written without alpha, with a palette where they have at most 256 colours; others as 8-bit
// RGBA. Profile and density are kept.
namespace PngEncoder {

std::expected<QByteArray, ImageCodec::Failure> encode(const QImage& image);

} // namespace PngEncoder

} // namespace Kovrel
