#pragma once

#include "capture/selection/AreaSelection.h"
#include "capture/selection/SelectionOverlay.h"
#include "overlay/OverlayView.h"
#include "platform/KeyGrabs.h"

namespace Kovrel {

class CaptureTrace;
class Displays;
class MainLoop;
class Pointer;
class Preferences;
class ScreenLock;

// One selection at a time, over all displays: runs the keys and the pointer of the session and reports exactly one
// result. A session that loses what it stands on — a display comes or goes, the screen gets locked, another program
// takes the keyboard or the place in front — ends as cancelled. Main thread.
class SelectionOverlayController : public SelectionOverlay {
public:
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

    explicit SelectionOverlayController(Platform platform);
    ~SelectionOverlayController() override;

    void prewarm();
    // The user may be about to begin.
    void expectSession();

    void begin(Mode mode, std::function<void(SelectionResult)> completion) override;

    Subscription onModeChange(std::function<void(Mode)> callback) override
    {
        return m_modeObservers.add(std::move(callback));
    }

    void applyFrozenImages() override;

    FrozenScreens takeFrozenImages() override { return std::exchange(m_kept, {}); }

    void reassertPresence() override;
    void cancel() override;

    bool isCommitting() const override { return m_isCommitting; }

private:
    void opened(std::optional<OverlaySurfaces::Opened> opened);
    void takePointer();
    void askForPointer();
    void askForWindows();
    void showHint();

    void take(KeyGrabs::Time time, std::function<void()> input);
    void handleInputs();
    void registerKeys();
    void releaseKeys();
    void spacePressed(KeyGrabs::Press press);
    void returnPressed();
    void arrowPressed(QPoint direction, KeyGrabs::Press press);
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
    void dismiss(bool keepingFrozenScreens);

    Platform m_platform;
    std::function<void(SelectionResult)> m_completion;
    Observers<Mode> m_modeObservers;
    quint64 m_session = 0;
    Mode m_mode = Mode::areaDrag;
    bool m_isCommitting = false;
    bool m_showsHint = false;
    bool m_pressedInWindowMode = false;
    bool m_isPicked = false; // by a click that came before the windows were known
    bool m_spaceIsDown = false;

    FrozenScreens m_frozen; // of the session that is open; empty on live ground
    FrozenScreens m_kept;   // of the one that ended with a result
    std::vector<OverlayView> m_views;
    AreaSelection m_area;
    std::optional<QPoint> m_pointer;
    std::optional<std::vector<WindowInfo>> m_windows; // front to back; none until the desktop has told
    std::vector<WindowInfo> m_hovered;                // one, or a tiled group
    std::vector<KeyGrabs::GrabID> m_keys;

    struct Input {
        KeyGrabs::Time time;
        std::function<void()> handle;
    };

    std::vector<Input> m_inputs; // that wait until all of one moment are there
    Subscription m_displayChanges;
    Subscription m_locks;
    Subscription m_takeovers;
};

} // namespace Kovrel
