#pragma once

#include "editor/geometry/MarkHandles.h"
#include "editor/session/EditorGesture.h"

namespace Kovrel {

// Drags a corner of the frame around several marks: all grow together. Alt keeps the middle in its place.
class GroupGesture : public EditorGesture {
public:
    // `held`: from the pointer to the corner.
    GroupGesture(const EditorDocument& start, std::vector<QUuid> ids, MarkHandle corner, Size held);

    EditorDocument moved(const CanvasPointer& pointer) override;

private:
    EditorDocument m_start;
    std::vector<QUuid> m_ids;
    MarkHandle m_corner;
    Size m_held;
    Rect m_bounds;
};

} // namespace Kovrel
