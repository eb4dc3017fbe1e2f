#pragma once

#include "editor/document/EditorDocument.h"
#include "editor/geometry/Snapping.h"
#include "editor/session/CanvasPointer.h"

#include <optional>
#include <vector>

namespace Kovrel {

// What a drag does, from the press of the button to its release. It works from the document as it was when it began, so
// keys may change midway, and nothing adds up.
class EditorGesture {
public:
    virtual ~EditorGesture() = default;

    // The document with the pointer there.
    virtual EditorDocument moved(const CanvasPointer& pointer) = 0;

    // The document when the button is let go without having moved; nothing: it was only a click.
    virtual std::optional<EditorDocument> clicked() const { return std::nullopt; }

    // What is selected afterwards; nothing: what was before.
    virtual std::optional<std::vector<QUuid>> selection() const { return std::nullopt; }

    // What is shown besides while it lasts.
    virtual std::vector<Snapping::Guide> guides() const { return {}; }

    virtual std::optional<Rect> marquee() const { return std::nullopt; }
};

} // namespace Kovrel
