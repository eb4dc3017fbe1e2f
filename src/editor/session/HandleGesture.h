#pragma once

#include "editor/geometry/MarkHandles.h"
#include "editor/session/EditorGesture.h"

namespace Kovrel {

// Drags a handle of a mark. Shift keeps its shape or makes angles whole, Alt keeps its middle in its place.
class HandleGesture : public EditorGesture {
public:
    // `held`: from the pointer to the middle of the handle.
    HandleGesture(const EditorDocument& start, QUuid id, MarkHandle handle, Size held, const Rect& canvas);

    EditorDocument moved(const CanvasPointer& pointer) override;

    std::vector<Snapping::Guide> guides() const override { return m_guides; }

private:
    Point snapped(const CanvasPointer& pointer);

    EditorDocument m_start;
    QUuid m_id;
    MarkHandle m_handle;
    Size m_held;
    Rect m_canvas;
    std::vector<Rect> m_others; // what it snaps to
    std::vector<Snapping::Guide> m_guides;
};

} // namespace Kovrel
