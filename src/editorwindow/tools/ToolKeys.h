#pragma once

#include "model/EditorTool.h"

#include <optional>

class QKeyEvent;

namespace Kovrel {

// The key by which each tool is taken. Stateless.
namespace ToolKeys {

char letterOf(EditorTool tool);

// The tool of a key that was pressed alone. On keyboards without Latin letters the place of the key counts, as it is on
// a US keyboard.
std::optional<EditorTool> toolOf(const QKeyEvent& event);

} // namespace ToolKeys

} // namespace Kovrel
