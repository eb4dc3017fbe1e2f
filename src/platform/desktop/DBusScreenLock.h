#pragma once

#include "platform/ScreenLock.h"

#include <QObject>

namespace Kovrel {

// The desktop's screen saver, as it announces itself on the session bus. A lock that announces nothing is known by
// its hold on the keyboard.
class DBusScreenLock : public QObject, public ScreenLock {
    Q_OBJECT

public:
    DBusScreenLock();

    Subscription onLock(std::function<void()> callback) override { return m_observers.add(std::move(callback)); }

    bool isLocked() const override { return m_isLocked; }

private Q_SLOTS:
    void activeChanged(bool isActive);

private:
    Observers<> m_observers;
    bool m_isLocked = false;
};

} // namespace Kovrel
