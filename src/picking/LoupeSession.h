#pragma once

#include "picking/AimSession.h"
#include "picking/ColorNotation.h"
#include "picking/LoupeScene.h"
#include "picking/LoupeStill.h"

#include <map>

namespace Kovrel {

// The loupe over frozen displays, from its coming up to its end, which is its owner's to bring about. Main thread.
class LoupeSession {
public:
    // Each may end the session.
    struct Handlers {
        std::function<void(Point)> onPick; // a click, or the key for it, at this global point
        // Once at most. The failure is why there could be no loupe, and else empty.
        std::function<void(const QString& failure)> onCancelled;
    };

    LoupeSession(const AimSession::Platform& platform, Handlers handlers);

    // Freezes the displays and covers them.
    void open() { m_aim.open(); }

    // The colour that was there; nothing beyond all displays, and as long as nothing is frozen.
    std::optional<QString> hexAt(Point point) const;

    // How the colour is written below the loupe.
    ColorNotation notation() const { return m_notation; }

private:
    std::vector<OverlaySession::Key> keys();
    AimSession::Handlers aimHandlers();
    void pointerChanged(const OverlayPointer& pointer);
    void released(Qt::MouseButton button);
    void nextNotation(KeyGrabs::Press press);
    void pick();
    void update();
    const LoupeStill* pointed() const;
    std::optional<LoupeScene::Moment> moment() const;

    Handlers m_handlers;
    std::map<quint32, LoupeStill> m_stills; // by the display's identifier
    std::optional<QPoint> m_pointer;        // root pixels
    bool m_isPressed = false;
    int m_zoom = LoupeScene::usualZoom;
    ColorNotation m_notation = ColorNotation::hex;
    AimSession m_aim;
};

} // namespace Kovrel
