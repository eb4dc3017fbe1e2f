#pragma once

#include <QRectF>
#include <QString>

#include <optional>
#include <vector>

namespace Kovrel {

// Lines in which all characters are equally wide, as in code. Stateless; any thread.
namespace CharacterGrid {

// Takes spaces out where there is no place for one: at brackets and the like that are one step from their neighbour. A
// box for each character of the text, none for spaces. Other lines stay as they are.
void closeFalseGaps(QString& text, std::vector<std::optional<QRectF>>& boxes);

} // namespace CharacterGrid

} // namespace Kovrel
