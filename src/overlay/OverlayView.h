#pragma once

#include "overlay/OverlayPainter.h"
#include "overlay/OverlayScene.h"
#include "platform/OverlaySurfaces.h"

namespace Kovrel {

// What one display shows of a session, painted onto its surface: each new scene repaints only what differs from the
// one before. Main thread.
class OverlayView {
public:
    // How the surface shows its display already.
    struct Backing {
        QImage screen; // what the display showed
        OverlaySurfaces::Ground ground = OverlaySurfaces::Ground::frozen;
        QColor shade = Qt::transparent; // over everything that is not lit
    };

    OverlayView(OverlaySurfaces& surfaces, Display display, Backing backing);

    const Display& display() const { return m_display; }

    void show(OverlayScene scene);
    void repaint(const QRect& rootPixels);
    // A part of the display with the scene that is shown, in root pixels; as the surface takes it.
    QImage compose(const QRect& rootPixels);

private:
    OverlaySurfaces& m_surfaces;
    Display m_display;
    Backing m_backing;
    OverlayScene m_scene;
    OverlayPainter m_painter;
};

} // namespace Kovrel
