#pragma once

#include "editor/session/EditorGesture.h"

namespace Kovrel {

// Puts a badge under the pointer, which can still be moved until the button is let go.
class StepGesture : public EditorGesture {
public:
    StepGesture(const EditorDocument& start, Annotation mark, Point at) : m_start(start), m_mark(std::move(mark))
    {
        m_mark.points = {at};
    }

    EditorDocument moved(const CanvasPointer& pointer) override { return withStepAt(pointer.at); }

    std::optional<EditorDocument> clicked() const override { return withStepAt(m_mark.points.front()); }

    std::optional<std::vector<QUuid>> selection() const override { return {{m_mark.id}}; }

private:
    EditorDocument withStepAt(Point at) const
    {
        EditorDocument next = m_start;
        next.marks.push_back(m_mark);
        next.marks.back().points = {at};
        return next;
    }

    EditorDocument m_start;
    Annotation m_mark;
};

} // namespace Kovrel
