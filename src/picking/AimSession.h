#pragma once

#include "overlay/OverlaySession.h"

#include <optional>

namespace Kovrel {

class Pointer;

// A crosshair over the displays as they looked at one moment, from its coming up to its end, which is its owner's to
// bring about: what the loupe and measuring have in common. The arrow keys move the pointer; Escape, the right button
// and all that cancels an overlay's session cancel this one. Main thread.
class AimSession {
public:
    struct Platform {
        OverlaySession::Services overlay;
        Pointer& pointer;
    };

    // Each may end the session.
    struct Handlers {
        std::function<void(const Display&, const QImage&)> onFrozen; // for each display
        std::function<void(const OverlayPointer&)> onPointer;        // also where it is at the beginning, as a move
        std::function<void()> onTake;                                // Return
        std::function<void()> onChanged;                             // what is shown may have to change
        // Once at most. The failure is why there could be no session, and else empty.
        std::function<void(const QString& failure)> onCancelled;
    };

    // `name` is for the log. The keys come on top of those that every session has.
    AimSession(Platform platform, QString name, std::vector<OverlaySession::Key> keys, Handlers handlers);

    // Freezes the displays and covers them.
    void open();

    void show(const OverlaySession::SceneOf& sceneOf) { m_overlay.show(sceneOf); }

private:
    std::vector<OverlaySession::Key> withUsual(std::vector<OverlaySession::Key> keys);
    OverlaySession::Handlers overlayHandlers();
    void askForPointer();
    void opened(const OverlaySurfaces::Opened& opened);
    void pointerChanged(const OverlayPointer& pointer);
    void moveBy(QPoint step);
    void take();
    void cancel(const QString& failure = {});

    Platform m_platform;
    Handlers m_handlers;
    std::optional<QPoint> m_pointer; // root pixels
    OverlaySession m_overlay;
    Lifeline m_lifeline;
};

} // namespace Kovrel
