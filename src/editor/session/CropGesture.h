#pragma once

#include "editor/geometry/MarkHandles.h"
#include "editor/session/EditorGesture.h"

namespace Kovrel {

// Drags out a crop, one of its handles, or the crop as a whole, within the canvas and on whole pixels. Shift keeps its
// shape, as a locked aspect does; Alt keeps its middle in its place.
class CropGesture : public EditorGesture {
public:
    struct Frame {
        Rect canvas;                  // image points
        double scale = 1;             // pixels of an image point
        std::optional<double> aspect; // width over height, where it is locked
    };

    // What is there: a handle, the inside, or nothing, where a new crop begins.
    CropGesture(const EditorDocument& start, const CanvasPointer& pointer, Frame frame);

    EditorDocument moved(const CanvasPointer& pointer) override;

    // What there is to drag, where a crop of this kind is: for cursors.
    static std::optional<MarkHandle> handleAt(const Rect& crop, const CanvasPointer& pointer);

private:
    Rect dragged(const CanvasPointer& pointer) const;
    Rect drawn(const CanvasPointer& pointer) const;
    Rect moved(Point to) const;

    EditorDocument m_start;
    Frame m_frame;
    Rect m_crop; // as it was
    Point m_from;
    std::optional<MarkHandle> m_handle;
    bool m_isNew = false;
};

} // namespace Kovrel
