#pragma once

#include <QByteArray>
#include <QImage>

namespace Kovrel {

// The density of a picture as an Exif block, for files that have no other place for it.
namespace ExifDensity {

QByteArray write(const QImage& image);

// Sets what the block says, if it says something.
void read(const QByteArray& exif, QImage& image);

} // namespace ExifDensity

} // namespace Kovrel
