#pragma once

#include "editor/geometry/Snapping.h"
#include "editor/session/EditorGesture.h"

namespace Kovrel {

// Draws a mark from one point to another. Shift makes angles whole and shapes even, Alt draws from the middle.
class DrawGesture : public EditorGesture {
public:
    // `mark` is new, with its style, and has no points.
    DrawGesture(const EditorDocument& start, Annotation mark, Point from, const Rect& canvas);

    EditorDocument moved(const CanvasPointer& pointer) override;

    std::optional<std::vector<QUuid>> selection() const override { return {{m_mark.id}}; }

    std::vector<Snapping::Guide> guides() const override { return m_guides; }

private:
    Point snapped(Point at, const CanvasPointer& pointer);

    EditorDocument m_start;
    Annotation m_mark;
    Point m_from;
    Rect m_canvas;
    std::vector<Rect> m_others; // what it snaps to
    std::vector<Snapping::Guide> m_guides;
};

} // namespace Kovrel
