#pragma once

#include "editor/session/EditorGesture.h"

namespace Kovrel {

// Selects what a dragged rectangle touches, besides what was selected before.
class MarqueeGesture : public EditorGesture {
public:
    MarqueeGesture(const EditorDocument& start, std::vector<QUuid> before, Point from);

    EditorDocument moved(const CanvasPointer& pointer) override;

    std::optional<EditorDocument> clicked() const override { return m_start; }

    std::optional<std::vector<QUuid>> selection() const override { return m_selection; }

    std::optional<Rect> marquee() const override { return m_marquee; }

private:
    EditorDocument m_start;
    std::vector<QUuid> m_before;
    std::vector<QUuid> m_selection;
    Point m_from;
    Rect m_marquee;
};

} // namespace Kovrel
