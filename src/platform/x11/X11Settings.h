#pragma once

#include "platform/Observers.h"
#include "platform/x11/X11Connection.h"

#include <QSocketNotifier>
#include <QString>

#include <map>
#include <memory>

namespace Kovrel {

// What a desktop's settings manager says to all programs on an X server (XSETTINGS), as the name of the theme, while
// that changes. Main thread; a look costs three round trips to a local server, and nothing wakes up while nothing
// changes.
class X11Settings {
public:
    // The connection belongs to this object alone: it takes its events.
    explicit X11Settings(std::unique_ptr<X11Connection> connection);

    // Empty where there is no manager, or none that says it.
    QString text(const QByteArray& name) const;

    Subscription onChange(std::function<void()> callback) { return m_observers.add(std::move(callback)); }

private:
    using Texts = std::map<QByteArray, QByteArray>;

    static Texts textsIn(const QByteArray& property);
    Texts read();
    void handleEvents();
    void select(xcb_window_t window, uint32_t mask);

    std::unique_ptr<X11Connection> m_connection;
    Texts m_texts;
    Observers<> m_observers;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Kovrel
