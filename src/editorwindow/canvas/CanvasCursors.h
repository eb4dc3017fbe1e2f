#pragma once

#include "editor/session/EditorPointing.h"

#include <QCursor>

namespace Kovrel {

// The pointer over a canvas: what a press of the button would do. Main thread.
namespace CanvasCursors {

QCursor of(const EditorPointing::Target& target, const EditorSession& session);

} // namespace CanvasCursors

} // namespace Kovrel
