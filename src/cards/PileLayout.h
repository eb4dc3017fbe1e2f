#pragma once

#include "model/PreviewPosition.h"

#include <QRectF>
#include <QSizeF>

#include <vector>

namespace Kovrel {

// Where the cards of a pile stand: in columns from a corner of the usable area, the newest nearest the corner, a column
// further in when one is full. Points, y down, in the coordinates of the area. Stateless.
namespace PileLayout {

constexpr double margin = 16; // to the edges of the area
constexpr double gap = 12;    // between cards

// A rectangle for each card, in their order, which is the newest first. Those that are too many lie upon the last.
std::vector<QRectF> places(const QRectF& area, PreviewPosition position, const std::vector<QSizeF>& cards);

// How many of them find a place of their own. The columns take half of the area at most, but always one.
size_t fitting(const QRectF& area, const std::vector<QSizeF>& cards);

} // namespace PileLayout

} // namespace Kovrel
