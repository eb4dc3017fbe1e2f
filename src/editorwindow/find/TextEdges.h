#pragma once

#include "editor/document/EditorCapture.h"

namespace Kovrel {

// Where letters end is known only about from their recognition; the pixels know it better. Any thread.
namespace TextEdges {

// A box of text so wide that it leaves nothing of a letter: where it is of whole words up to the gap beside them, else
// to the end of the letters that it touches, and in any case a little more. Image points, y up, within the canvas.
Rect widened(const EditorCapture& capture, const Rect& box, bool isOfWords);

} // namespace TextEdges

} // namespace Kovrel
