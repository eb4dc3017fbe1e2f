#pragma once

#include <QPainterPath>
#include <QString>

#include <optional>

namespace Kovrel {

// The symbols of the editor's tools, as those of Symbols: lines in a unit box, y down.
namespace EditorSymbols {

std::optional<QPainterPath> path(const QString& name);

} // namespace EditorSymbols

} // namespace Kovrel
