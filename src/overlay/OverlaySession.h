#pragma once

#include "overlay/OverlayView.h"
#include "platform/KeyGrabs.h"
#include "platform/Lifeline.h"
#include "platform/Observers.h"

namespace Kovrel {

class Displays;
class MainLoop;
class ScreenLock;

// One session over all displays, from its making to its end: it covers them, has the session's keys, and tells of keys
// and pointer in the order in which things were done. When it loses what it stands on, because a display comes, goes or
// changes, the screen gets locked, or another program takes the keyboard or the place in front, it is cancelled; its
// owner ends it by letting it go, which each of its callbacks may do. Main thread.
class OverlaySession {
public:
    struct Services {
        MainLoop& loop;
        Displays& displays;
        KeyGrabs& keys;
        ScreenLock& lock;
        OverlaySurfaces& surfaces;
    };

    // A key of the session, with whichever modifiers are down.
    struct Key {
        quint32 keyCode = 0;
        std::function<void(KeyGrabs::Press)> onPress;
        std::function<void()> onRelease = [] {};
        QString logName = {}; // how the log calls it when it can't be had; empty: "key " and its name
    };

    struct Handlers {
        std::function<void(const OverlaySurfaces::Opened&)> onOpened;
        std::function<void(const OverlayPointer&)> onPointer;
        std::function<void()> onInputsHandled; // all that were there at one moment
        std::function<void()> onDesktopSwitch; // to another workspace; the session has come along
        // Called once at most. The failure is why there could be no session, and else empty.
        std::function<void(const QString& failure)> onCancelled;
    };

    using SceneOf = std::function<OverlayScene(const Display&)>;
    using CursorOf = std::function<OverlayCursor(const Display&)>;

    // `name` is for the log: "selection".
    OverlaySession(Services services, QString name, std::vector<Key> keys, Handlers handlers);
    ~OverlaySession();
    OverlaySession(const OverlaySession&) = delete;
    OverlaySession& operator=(const OverlaySession&) = delete;

    // Covers the displays; `onOpened` tells when they are. Refused, it is cancelled.
    void open(OverlaySurfaces::Opening opening);
    // From now on keys count. Costs several round trips.
    void takeKeys();

    bool isOpen() const { return !m_views.empty(); }

    void show(const SceneOf& sceneOf);
    // Back to the front, cursor included. Without effect before it was opened.
    void reassertPresence();
    // The same, with another cursor from now on.
    void setCursor(CursorOf cursor);

    // What the displays showed when they were frozen; the session then no longer has it. Empty on live ground.
    FrozenScreens takeFrozenScreens() { return std::exchange(m_frozen, {}); }

private:
    struct Input {
        KeyGrabs::Time time;
        std::function<void()> handle;
    };

    OverlaySurfaces::Handlers surfaceHandlers();
    void opened(OverlaySurfaces::Outcome opened);
    void addViews(const OverlaySurfaces::Opened& opened);
    void takePointer();
    void grabKeys();
    void grab(const Key& key);
    void releaseKeys();
    void take(KeyGrabs::Time time, std::function<void()> input);
    void handleInputs();
    void cancel(const QString& failure = {});

    Services m_services;
    QString m_name;
    std::vector<Key> m_keys;
    Handlers m_handlers;
    CursorOf m_cursor;
    QColor m_shade = Qt::transparent;
    std::vector<OverlayView> m_views;
    FrozenScreens m_frozen;
    std::vector<KeyGrabs::GrabID> m_grabs;
    std::vector<Input> m_inputs; // that wait until all of one moment are there
    Subscription m_displayChanges;
    Subscription m_locks;
    Subscription m_takeovers;
    Lifeline m_lifeline;
};

} // namespace Kovrel
