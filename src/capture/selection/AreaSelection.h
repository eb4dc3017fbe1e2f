#pragma once

#include "platform/Display.h"

#include <optional>

namespace Kovrel {

// The rectangle of one session while it is dragged out, moved along, or set with the keyboard. Root pixels; it never
// leaves the desktop.
class AreaSelection {
public:
    explicit AreaSelection(DisplayList displays = {});

    void press(QPoint pointer);
    void drag(QPoint pointer, bool isSquare);
    void release();

    bool isDragging() const { return m_isDragging; }

    // While the rectangle is moved, dragging takes it along instead of resizing it.
    void beginMoving();
    void endMoving();

    bool isMoving() const { return m_isMoving; }

    // With the keyboard: the free corner goes on by `step`; the first step sets the other one at the pointer.
    void extend(QPoint pointer, QPoint step);
    void moveBy(QPoint step);

    // No value before anything is selected; may be empty.
    std::optional<QRect> rect() const;
    // The pixel at the free corner.
    QPoint cornerPixel() const;

private:
    QPoint within(QPoint corner) const;

    DisplayList m_displays;
    QRect m_desktop;
    std::optional<QPoint> m_anchor; // corners between pixels
    QPoint m_corner;
    QPoint m_pointer; // where the drag is
    QPoint m_grip;    // from there to the corner of the rectangle that is moved
    bool m_isDragging = false;
    bool m_isMoving = false;
};

} // namespace Kovrel
