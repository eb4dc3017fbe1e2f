#pragma once

#include <QImage>
#include <QRectF>
#include <QString>

#include <optional>
#include <vector>

namespace Kovrel {

// Where in a line each character stands, told by its ink: the recogniser knows which characters there are, and often takes
// the gap before one, or half of its neighbour, for a part of it. Stateless; any thread.
namespace CharacterPlaces {

// Moves boxes to the ink that is theirs, word by word, and leaves a word alone where its ink does not tell. `ink` is the
// line, dark on light. A box for each character of the text, none for spaces. Only for scripts whose letters stand side
// by side, from the left to the right.
void followInk(const QString& text, const QImage& ink, std::vector<std::optional<QRectF>>& boxes);

} // namespace CharacterPlaces

} // namespace Kovrel
