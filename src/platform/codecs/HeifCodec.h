#pragma once

#include "platform/ImageCodec.h"

namespace Kovrel {

// HEIC files, through a plugin ("heif") that is loaded with the first of them.
class HeifCodec {
public:
    virtual ~HeifCodec() = default;

    virtual std::expected<QByteArray, ImageCodec::Failure> encode(const QImage& image, double quality) const = 0;
    virtual std::expected<QImage, ImageCodec::Failure> decode(const QByteArray& data) const = 0;
};

// What the plugin exports, as `kovrelHeifCodec`: an object that lives as long as the program.
using HeifCodecFunction = const HeifCodec* (*)();

} // namespace Kovrel
