#pragma once

#include "model/ImageFormat.h"

#include <QByteArray>
#include <QImage>

#include <expected>

namespace Kovrel {

// Image files to and from pixels. Stateless and safe on any thread; 4K images take tens of milliseconds, so never on
// the main thread. The colour profile and the density (dots per metre) of the image are kept in every format.
namespace ImageCodec {

struct Failure {
    QString message; // one line, for people
};

// `quality` is 0 to 1 and matters to jpeg and heic only; from 0.9 on those keep colours at full resolution. What shines
// through a picture is white in jpeg.
std::expected<QByteArray, Failure> encode(const QImage& image, ImageFormat format, double quality);

// By content, not by name. Orientation is applied, 16-bit and CMYK pixels become 8-bit RGB. Corrupt data and
// pictures that would take more than a gigabyte of memory are failures. The answer is Format_RGB32, or Format_ARGB32
// for files with alpha; device pixel ratio 1.
std::expected<QImage, Failure> decode(const QByteArray& data);
// Fails also for folders, pipes and other things that are no regular file.
std::expected<QImage, Failure> decodeFile(const QString& path);

// Whether any pixel lets something through.
bool hasVisibleTransparency(const QImage& image);

} // namespace ImageCodec

} // namespace Kovrel
