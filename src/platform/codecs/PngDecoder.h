#pragma once

#include "platform/ImageCodec.h"

namespace Kovrel {

// PNG files of every kind, among them those that this program writes.
namespace PngDecoder {

bool isPng(const QByteArray& data);
std::expected<QImage, ImageCodec::Failure> decode(const QByteArray& data);

} // namespace PngDecoder

} // namespace Kovrel
