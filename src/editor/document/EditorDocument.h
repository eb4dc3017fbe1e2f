#pragma once

#include "editor/backdrop/EditorBackdrop.h"
#include "editor/crop/CropOutputSize.h"
#include "editor/marks/Annotation.h"

#include <optional>
#include <vector>

namespace Kovrel {

// What is made of the capture as a whole.
struct EditorComposition {
    std::optional<Rect> crop; // image points of the capture, y up; nothing: all of it
    CropOutputSize outputSize;
    EditorBackdrop backdrop = EditorBackdrop::none;
    bool operator==(const EditorComposition&) const = default;
};

// All that an editor changes of a capture: a value, which undo and redo bring back as it was.
struct EditorDocument {
    std::vector<Annotation> marks; // later ones on top
    EditorComposition composition;
    bool operator==(const EditorDocument&) const = default;

    // Null where there is none; valid until the document changes.
    const Annotation* mark(QUuid id) const;
    Annotation* mark(QUuid id);
};

} // namespace Kovrel
