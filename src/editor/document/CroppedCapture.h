#pragma once

#include "editor/document/EditorCapture.h"
#include "editor/document/EditorDocument.h"

namespace Kovrel {

// A capture and its document with the crop carried out: there is none left, and marks are where they were on what is
// left of the picture. Any thread.
struct CroppedCapture {
    EditorCapture capture;
    EditorDocument document;

    static CroppedCapture of(EditorCapture capture, EditorDocument document);
    // What the document's crop cuts out of a picture of the whole capture: pixels, origin upper left.
    static QRect pixels(const EditorCapture& capture, const EditorComposition& composition);
};

} // namespace Kovrel
