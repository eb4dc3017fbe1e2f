#pragma once

#include "platform/appearance/Appearance.h"

namespace Kovrel::Testing {

// The desktop's wish is what the test says.
class FakeAppearance : public Appearance {
public:
    std::optional<bool> isDark() const override { return m_isDark; }

    Subscription onChange(std::function<void()> callback) override { return m_observers.add(std::move(callback)); }

    void setDark(std::optional<bool> isDark)
    {
        m_isDark = isDark;
        m_observers.notify();
    }

private:
    std::optional<bool> m_isDark;
    Observers<> m_observers;
};

} // namespace Kovrel::Testing
