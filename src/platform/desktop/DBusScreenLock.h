#pragma once

#include "platform/ScreenLock.h"

#include <QObject>

#include <vector>

namespace Kovrel {

// The desktop's screen saver, as it announces itself on the session bus. A lock that announces nothing is known by
// its hold on the keyboard.
class DBusScreenLock : public QObject, public ScreenLock {
    Q_OBJECT

public:
    DBusScreenLock();

    void onLock(std::function<void()> callback) override { m_callbacks.push_back(std::move(callback)); }

private Q_SLOTS:
    void activeChanged(bool isActive);

private:
    std::vector<std::function<void()>> m_callbacks;
};

} // namespace Kovrel
