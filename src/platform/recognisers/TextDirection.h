#pragma once

#include <QRect>

#include <vector>

namespace Kovrel {

// How the lines of a page lie, told by the places of its letters. Stateless; any thread.
namespace TextDirection {

// The angle of the lines in degrees, above -90 and at most 90, clockwise from the horizontal; 0 where the letters
// don't say. A page and the same page upside down have the same angle.
//
// Neighbouring letters lie in the direction of their line (the "docstrum" of O'Gorman, 1993). The direction that most
// of them show is refined to where their projection on the normal is sharpest.
double of(const std::vector<QRect>& blobs, int letterHeight);

} // namespace TextDirection

} // namespace Kovrel
