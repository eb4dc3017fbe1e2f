#pragma once

#include "platform/Displays.h"

namespace Kovrel::Testing {

class FakeDisplays : public Displays {
public:
    DisplayList displays;
    bool hasCompositor = true;

    DisplayList all() const override { return displays; }

    bool isComposited() const override { return hasCompositor; }

    Subscription onChange(std::function<void()> callback) override { return m_observers.add(std::move(callback)); }

    void change(DisplayList to)
    {
        displays = std::move(to);
        m_observers.notify();
    }

private:
    Observers<> m_observers;
};

} // namespace Kovrel::Testing
