#pragma once

#include <QRectF>
#include <QString>

#include <optional>
#include <vector>

namespace Kovrel {

// Where the characters of a line stand, one after the other. Stateless; any thread.
namespace CharacterOrder {

// Takes away boxes of characters that would stand before one that they follow, as few as that takes: the recogniser gives
// some marks the place of what comes much later. A box for each character of the text, none for spaces. Lines in which
// both directions occur stay as they are.
void dropStrays(const QString& text, std::vector<std::optional<QRectF>>& boxes);

} // namespace CharacterOrder

} // namespace Kovrel
