#pragma once

#include <QRect>

#include <vector>

namespace Kovrel {

// Cuts a page along blank stretches into parts that can be read independently. Stateless; any thread.
namespace PageDivision {

// The blobs of each part, in the order in which a book is read: columns from left to right, and what lies above or
// below several columns on its own. Lines of text are never cut: a vertical cut needs a gap wider than any between
// words. What is too large for letters belongs to no part.
std::vector<std::vector<QRect>> parts(const std::vector<QRect>& blobs, int letterHeight);

} // namespace PageDivision

} // namespace Kovrel
