#pragma once

#include "editor/session/CaptureEdges.h"
#include "editor/session/EditorGesture.h"

#include <memory>

namespace Kovrel {

// Brings a measure to edges of the picture, while another gesture draws it or drags one of its ends. One that is nearly
// level or upright becomes so; Alt and Control leave it alone.
class MeasureGesture : public EditorGesture {
public:
    enum class Drags {
        both, // it is drawn
        start,
        end,
    };

    struct Measure {
        QUuid mark;
        Drags drags;
        std::shared_ptr<const CaptureEdges> edges;
    };

    MeasureGesture(std::unique_ptr<EditorGesture> drawing, Measure measure, std::optional<EditorDocument> onClick = {});

    EditorDocument moved(const CanvasPointer& pointer) override;

    std::optional<EditorDocument> clicked() const override { return m_onClick; }

    std::optional<std::vector<QUuid>> selection() const override { return m_drawing->selection(); }

    std::vector<Snapping::Guide> guides() const override { return m_drawing->guides(); }

private:
    void bringToEdges(std::vector<Point>& ends, double reach) const;

    std::unique_ptr<EditorGesture> m_drawing;
    Measure m_measure;
    std::optional<EditorDocument> m_onClick;
};

} // namespace Kovrel
