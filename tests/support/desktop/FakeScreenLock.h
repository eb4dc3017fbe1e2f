#pragma once

#include "platform/ScreenLock.h"

namespace Kovrel::Testing {

class FakeScreenLock : public ScreenLock {
public:
    Subscription onLock(std::function<void()> callback) override { return m_observers.add(std::move(callback)); }

    bool isLocked() const override { return m_isLocked; }

    void lock()
    {
        m_isLocked = true;
        m_observers.notify();
    }

private:
    Observers<> m_observers;
    bool m_isLocked = false;
};

} // namespace Kovrel::Testing
