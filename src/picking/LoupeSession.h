#pragma once

#include "overlay/OverlaySession.h"
#include "picking/ColorNotation.h"
#include "picking/LoupeScene.h"
#include "picking/LoupeStill.h"

#include <map>
#include <optional>

namespace Kovrel {

class Pointer;

// The loupe over frozen displays, from its coming up to its end, which is its owner's to bring about. Main thread.
class LoupeSession {
public:
    struct Platform {
        OverlaySession::Services overlay;
        Pointer& pointer;
    };

    // Each may end the session.
    struct Handlers {
        std::function<void(Point)> onPick; // a click, or the key for it, at this global point
        // Once at most. The failure is why there could be no loupe, and else empty.
        std::function<void(const QString& failure)> onCancelled;
    };

    LoupeSession(Platform platform, Handlers handlers);

    // Freezes the displays and covers them.
    void open();

    // The colour that was there; nothing beyond all displays, and as long as nothing is frozen.
    std::optional<QString> hexAt(Point point) const;

    // How the colour is written below the loupe.
    ColorNotation notation() const { return m_notation; }

private:
    std::vector<OverlaySession::Key> keys();
    OverlaySession::Handlers overlayHandlers();
    void askForPointer();
    void opened(const OverlaySurfaces::Opened& opened);
    void pointerChanged(const OverlayPointer& pointer);
    void released(Qt::MouseButton button);
    void moveBy(QPoint step);
    void nextNotation(KeyGrabs::Press press);
    void zoomBy(int steps);
    void pick();
    void cancel(const QString& failure = {});
    void update();
    std::optional<Point> pointed() const;
    std::optional<LoupeScene::Moment> moment() const;

    Platform m_platform;
    Handlers m_handlers;
    std::map<quint32, LoupeStill> m_stills; // by the display's identifier
    std::optional<QPoint> m_pointer;
    bool m_isPressed = false;
    int m_zoom = LoupeScene::usualZoom;
    ColorNotation m_notation = ColorNotation::hex;
    OverlaySession m_overlay;
    Lifeline m_lifeline;
};

} // namespace Kovrel
