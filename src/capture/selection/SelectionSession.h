#pragma once

#include "capture/selection/AreaSelection.h"
#include "capture/selection/SelectionOverlay.h"
#include "overlay/OverlaySession.h"

namespace Kovrel {

class CaptureTrace;
class Pointer;
class Preferences;

// One selection, from the moment when somebody wants to select to its result: what is dragged out, pointed at, or set
// with the keyboard. Main thread.
class SelectionSession {
public:
    using Mode = SelectionOverlay::Mode;

    struct Platform {
        MainLoop& loop;
        Preferences& preferences;
        CaptureTrace& trace;
        Displays& displays;
        Pointer& pointer;
        Windows& windows;
        KeyGrabs& keys;
        ScreenLock& lock;
        OverlaySurfaces& surfaces;
    };

    struct Handlers {
        std::function<void(Mode)> onModeChange;
        // Called once, and then nothing else is done: the session may go.
        std::function<void(SelectionResult)> onFinished;
    };

    SelectionSession(Platform platform, Mode mode, Handlers handlers);

    // Freezes the displays, where the user wants that or nothing else is possible, and covers them.
    void open();

    void reassertPresence() { m_overlay.reassertPresence(); }

    void cancel() { finish(SelectionCancelled{}); }

    FrozenScreens takeFrozenScreens() { return m_overlay.takeFrozenScreens(); }

private:
    std::vector<OverlaySession::Key> keys();
    OverlaySession::Handlers overlayHandlers();
    OverlaySession::CursorOf cursor() const;
    void askForPointer();
    void askForWindows();
    void countHint();

    void spacePressed(KeyGrabs::Press press);
    void spaceReleased();
    void shiftChanged(bool isDown);
    void returnPressed();
    void arrowPressed(QPoint step, KeyGrabs::Press press);
    void toggleMode();

    void pointerChanged(const OverlayPointer& pointer);
    void pressed(const OverlayPointer& pointer);
    void released(const OverlayPointer& pointer);
    void updateHoveredWindows();
    void pickHovered();
    void update();

    bool isBigEnough(const QRect& rect) const;
    double scaleAtPointer() const;
    void finish(SelectionResult result);

    Platform m_platform;
    Handlers m_handlers;
    Mode m_mode;
    bool m_showsHint = false;
    bool m_pressedInWindowMode = false;
    bool m_isPicked = false; // by a click that came before the windows were known
    bool m_spaceIsDown = false;
    AreaSelection m_area;
    std::optional<QPoint> m_pointer;
    std::optional<std::vector<WindowInfo>> m_windows; // front to back; none until the desktop has told
    bool m_areWindowsRefused = false;
    std::vector<WindowInfo> m_hovered; // one, or a tiled group
    OverlaySession m_overlay;
    Lifeline m_lifeline;
};

} // namespace Kovrel
