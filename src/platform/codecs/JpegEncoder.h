#pragma once

#include "platform/ImageCodec.h"

namespace Kovrel {

// JPEG files. What shines through a picture is white; from a quality of 0.9 on colours keep their full resolution, so
// that coloured text stays crisp.
namespace JpegEncoder {

std::expected<QByteArray, ImageCodec::Failure> encode(const QImage& image, double quality);

} // namespace JpegEncoder

} // namespace Kovrel
