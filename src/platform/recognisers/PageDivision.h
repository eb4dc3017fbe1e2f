#pragma once

#include <QRect>

#include <vector>

namespace Kovrel {

// Cuts a page along blank stretches into parts that can be read independently. Stateless; any thread.
namespace PageDivision {

// Parts that cover the page, in the order in which a book is read: about as many letters in each, as far as the blank
// stretches allow. Lines of text are never cut: a vertical cut needs a gap wider than any between words.
std::vector<QRect> parts(QSize page, const std::vector<QRect>& blobs, int letterHeight);

} // namespace PageDivision

} // namespace Kovrel
