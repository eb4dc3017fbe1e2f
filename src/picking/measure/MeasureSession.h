#pragma once

#include "overlay/OverlaySession.h"
#include "picking/measure/MeasureAim.h"
#include "picking/measure/MeasureScene.h"

namespace Kovrel {

class Pointer;
class Preferences;
class Workers;

// Measuring on frozen displays, from its coming up to its end, which is its owner's to bring about. Main thread; the
// pixels are prepared on a worker, and until they are nothing is read.
class MeasureSession {
public:
    struct Platform {
        OverlaySession::Services overlay;
        Workers& workers;
        Pointer& pointer;
        Preferences& preferences;
    };

    // Each may end the session.
    struct Handlers {
        std::function<void(const QString& reading)> onTaken; // "128 × 40"
        // Once at most. The failure is why nothing can be measured, and else empty.
        std::function<void(const QString& failure)> onCancelled;
    };

    MeasureSession(Platform platform, Handlers handlers);

    // Freezes the displays and covers them.
    void open();

private:
    std::vector<OverlaySession::Key> keys();
    OverlaySession::Handlers overlayHandlers();
    void askForPointer();
    void opened(const OverlaySurfaces::Opened& opened);
    void prepare(const FrozenScreen& screen, const Display& display);
    void noteHint();

    void pointerChanged(const OverlayPointer& pointer);
    void pressed(const OverlayPointer& pointer);
    void moveBy(QPoint step);
    void changeTolerance(int steps);
    void switchUnit();
    void take();
    void cancel(const QString& failure = {});

    void update();
    QString hint() const;
    MeasureUnit unit() const;

    Platform m_platform;
    Handlers m_handlers;
    MeasureAim m_aim;
    bool m_showsHint = false;
    bool m_showsTolerance = false; // after it was changed, until the pointer moves on
    OverlaySession m_overlay;
    Lifeline m_lifeline;
};

} // namespace Kovrel
