#pragma once

#include "platform/Displays.h"
#include "platform/x11/X11Connection.h"

#include <QSocketNotifier>

#include <memory>

namespace Kovrel {

// The displays of an X server. The snapshot follows the server's events; making it anew costs a few round trips to a
// local server on the main thread. Nothing wakes up while nothing changes.
class X11Displays : public Displays {
public:
    // The connection belongs to this object alone: it takes its events.
    X11Displays(std::unique_ptr<X11Connection> connection, ScaleLookup scaleOf);

    DisplayList all() const override { return m_displays; }

    bool isComposited() const override;

    Subscription onChange(std::function<void()> callback) override { return m_observers.add(std::move(callback)); }

    // Looks again, for a change that the server does not tell, as that of a scale.
    void refresh();

    // The displays at this moment, on any thread that owns the connection.
    static DisplayList read(X11Connection& connection, const ScaleLookup& scaleOf);

private:
    void listen();
    void handleEvents();
    void readAgain();
    bool takeRelevantEvents();

    std::unique_ptr<X11Connection> m_connection;
    ScaleLookup m_scaleOf;
    DisplayList m_displays;
    Observers<> m_observers;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Kovrel
