#pragma once

#include <QImage>

namespace Kovrel {

// Pictures of Format_Grayscale8, as codes are looked for in them. Stateless; any thread. Each is a null picture when
// memory is short.
namespace GreyPicture {

// The brightness (ITU-R BT.601) of a picture of any format; what shines through is white.
QImage of(const QImage& image);

// A part of the same pixels, which must outlive it.
QImage view(const QImage& grey, const QRect& pixels);

// At half its size, each pixel the mean of four.
QImage halved(const QImage& grey);

// At `factor` times its size, interpolated linearly.
QImage enlarged(const QImage& grey, int factor);

// Each pixel the mean of itself and its eight neighbours, which takes the noise out of photographs.
QImage softened(const QImage& grey);

// The picture with its differences from the softened one added once more, which brings faint and unsharp modules out.
QImage sharpened(const QImage& grey, const QImage& soft);

// Each pixel between the darkest and the lightest one around it: what lies in a shadow or is faint comes out as clear
// as the rest.
QImage levelled(const QImage& grey);

// Light for dark.
QImage inverted(QImage grey);

} // namespace GreyPicture

} // namespace Kovrel
