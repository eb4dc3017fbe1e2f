#pragma once

#include "platform/ImageCodec.h"

namespace Kovrel {

// TIFF files, lossless: deflate with a horizontal predictor; alpha, where there is any, not premultiplied.
namespace TiffEncoder {

std::expected<QByteArray, ImageCodec::Failure> encode(const QImage& image);

} // namespace TiffEncoder

} // namespace Kovrel
