#pragma once

#include "editor/geometry/MarkHandles.h"
#include "editor/session/CaptureEdges.h"
#include "editor/session/EditorGesture.h"
#include "editor/session/EditorSession.h"

#include <memory>

namespace Kovrel {

// What the pointer does on the canvas, with the tool in hand. Main thread.
class EditorPointing {
public:
    // What lies under the pointer, for its cursor.
    struct Target {
        std::optional<QUuid> mark;
        std::optional<MarkHandle> handle; // of that mark, of the frame around several, or of the crop
        bool isSelected = false;
        bool operator==(const Target&) const = default;
    };

    explicit EditorPointing(EditorSession& session) : m_session(session) {}

    Target targetAt(const CanvasPointer& pointer) const;

    void press(const CanvasPointer& pointer);
    void move(const CanvasPointer& pointer);
    // A label that was clicked, drawn or placed, and in which somebody wants to write now.
    std::optional<QUuid> release(const CanvasPointer& pointer);
    // As if the button had not been pressed.
    void cancel();

    bool isActive() const { return m_gesture != nullptr; }

    const EditorGesture* gesture() const { return m_gesture.get(); }

    // Width over height of crops, where it is locked.
    void setCropAspect(std::optional<double> aspect) { m_cropAspect = aspect; }

    // How high lines of text are, where that is known: what a highlighter fits itself to.
    void setLineHeightAt(std::function<std::optional<double>(Point)> lineHeightAt)
    {
        m_lineHeightAt = std::move(lineHeightAt);
    }

    // What measures go to; nothing while it is not known yet.
    void setEdges(std::shared_ptr<const CaptureEdges> edges) { m_edges = std::move(edges); }

private:
    std::unique_ptr<EditorGesture> gestureAt(const CanvasPointer& pointer);
    std::unique_ptr<EditorGesture> onMark(QUuid id, const CanvasPointer& pointer);
    std::unique_ptr<EditorGesture> held(const Target& target, const CanvasPointer& pointer) const;
    std::unique_ptr<EditorGesture> drawing(const CanvasPointer& pointer, bool isOnMark) const;
    std::unique_ptr<EditorGesture> measuring(Annotation mark, const CanvasPointer& pointer, bool isOnMark) const;
    std::optional<EditorDocument> measured(Annotation mark, const CanvasPointer& pointer) const;
    Annotation newMark(const CanvasPointer& pointer) const;
    void fitHighlighter(Annotation& mark, Point at) const;
    bool isOnInk(QUuid id, const CanvasPointer& pointer) const;
    std::optional<QUuid> clicked(const EditorGesture& gesture);
    QUuid newLabel();
    bool isNewLabel(const std::vector<QUuid>& ids) const;

    EditorSession& m_session;
    std::unique_ptr<EditorGesture> m_gesture;
    CanvasPointer m_pressed;
    bool m_hasMoved = false;
    std::optional<double> m_cropAspect;
    std::function<std::optional<double>(Point)> m_lineHeightAt;
    std::shared_ptr<const CaptureEdges> m_edges;
};

} // namespace Kovrel
