#pragma once

#include "editor/session/EditorGesture.h"

namespace Kovrel {

// Draws along the pointer's way; with Shift, a straight line from where it began, and on from its end without it.
class StrokeGesture : public EditorGesture {
public:
    StrokeGesture(const EditorDocument& start, Annotation mark, Point from);

    EditorDocument moved(const CanvasPointer& pointer) override;

    std::optional<EditorDocument> clicked() const override { return withStroke(m_mark.points); }

private:
    EditorDocument withStroke(std::vector<Point> points) const;

    EditorDocument m_start;
    Annotation m_mark; // with what was drawn so far
};

} // namespace Kovrel
