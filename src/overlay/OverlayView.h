#pragma once

#include "overlay/OverlayPainter.h"
#include "overlay/OverlayScene.h"
#include "platform/OverlaySurfaces.h"

namespace Kovrel {

// What one display shows of a session, painted onto its surface: each new scene repaints only what differs from the
// one before. Main thread.
class OverlayView {
public:
    // `screen` is what the display showed. The surface shows the shaded ground already.
    OverlayView(OverlaySurfaces& surfaces, Display display, QImage screen, OverlaySurfaces::Ground ground);

    const Display& display() const { return m_display; }

    void show(OverlayScene scene);
    void repaint(const QRect& rootPixels);
    // A part of the display with the scene that is shown, in root pixels; as the surface takes it.
    QImage compose(const QRect& rootPixels);

private:
    OverlaySurfaces& m_surfaces;
    Display m_display;
    QImage m_screen;
    OverlaySurfaces::Ground m_ground;
    OverlayScene m_scene;
    OverlayPainter m_painter;
};

} // namespace Kovrel
