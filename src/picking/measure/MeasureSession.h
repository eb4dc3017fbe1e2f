#pragma once

#include "picking/AimSession.h"
#include "picking/measure/MeasureAim.h"
#include "picking/measure/MeasureScene.h"

namespace Kovrel {

class Preferences;
class Workers;

// Measuring on frozen displays, from its coming up to its end, which is its owner's to bring about. Main thread; the
// pixels are prepared on a worker, and until they are nothing is read.
class MeasureSession {
public:
    struct Platform {
        AimSession::Platform aim;
        Workers& workers;
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
    void open() { m_session.open(); }

private:
    std::vector<OverlaySession::Key> keys();
    AimSession::Handlers aimHandlers();
    void prepare(const Display& display, const QImage& image);
    void noteHint();

    void pointerChanged(const OverlayPointer& pointer);
    void changeTolerance(int steps);
    void switchUnit();
    void take();

    void update();
    QString hint() const;
    MeasureUnit unit() const;

    Platform m_platform;
    Handlers m_handlers;
    MeasureAim m_aim;
    bool m_showsHint = false;
    bool m_showsTolerance = false; // after it was changed, until the pointer moves on
    AimSession m_session;
    Lifeline m_lifeline;
};

} // namespace Kovrel
