#pragma once

#include "platform/ScreenLock.h"

namespace Kovrel::Testing {

class FakeScreenLock : public ScreenLock {
public:
    Subscription onLock(std::function<void()> callback) override { return m_observers.add(std::move(callback)); }

    void lock() { m_observers.notify(); }

private:
    Observers<> m_observers;
};

} // namespace Kovrel::Testing
