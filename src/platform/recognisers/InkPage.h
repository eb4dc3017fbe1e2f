#pragma once

#include <QImage>

#include <vector>

namespace Kovrel {

// A picture as a recogniser wants it: text is dark on white, whatever it was written on. Stateless; any thread.
namespace InkPage {

// Format_Grayscale8, same size. Areas of one colour (windows, sidebars, chips, dark themes) become white, and what
// stands on them as dark as it differs from them; faint text comes out as dark as any other. A picture without such
// areas, like a photograph or a noisy scan, stays as it is, inverted when most of it is dark.
QImage from(const QImage& picture);

// The boxes of what is dark and connected: letters, mostly.
std::vector<QRect> blobs(const QImage& ink);

// The height of small letters: the blobs that may be letters and are lower make up half of the height of all; 0 without
// any.
int letterHeight(const std::vector<QRect>& blobs);

} // namespace InkPage

} // namespace Kovrel
