#pragma once

#include "editor/session/EditorGesture.h"

namespace Kovrel {

// Moves marks. Shift keeps them on one line, across or up; Alt leaves them and moves copies.
class MoveGesture : public EditorGesture {
public:
    MoveGesture(const EditorDocument& start, std::vector<QUuid> ids, Point from, const Rect& canvas);

    EditorDocument moved(const CanvasPointer& pointer) override;
    std::optional<std::vector<QUuid>> selection() const override;

    std::vector<Snapping::Guide> guides() const override { return m_guides; }

private:
    Size shiftTo(const CanvasPointer& pointer);

    EditorDocument m_start;
    std::vector<QUuid> m_ids;
    std::vector<QUuid> m_copies; // identities of copies, the same throughout
    Point m_from;
    Rect m_bounds;
    Rect m_canvas;
    std::vector<Rect> m_others; // what it snaps to
    bool m_isCopying = false;
    std::vector<Snapping::Guide> m_guides;
};

} // namespace Kovrel
