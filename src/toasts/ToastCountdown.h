#pragma once

#include "model/ToastContent.h"
#include "platform/MainLoop.h"

#include <functional>
#include <optional>

namespace Kovrel {

// How long a toast stays: its linger, which stands still while the toast is held, as by the pointer on it, and is short
// when it is let go. At most one end is pending. Times are seconds; main thread.
class ToastCountdown {
public:
    ToastCountdown(MainLoop& loop, std::function<void()> onEnd) : m_loop(loop), m_onEnd(std::move(onEnd)) {}

    ~ToastCountdown() { cancel(); }

    ToastCountdown(const ToastCountdown&) = delete;
    ToastCountdown& operator=(const ToastCountdown&) = delete;

    // The toast shows this from now on.
    void begin(const ToastContent& content);
    // The time that is left, for those that go by themselves; none: the whole linger.
    void arm(std::optional<double> seconds);
    void setHeld(bool isHeld);
    void cancel();

private:
    MainLoop& m_loop;
    std::function<void()> m_onEnd;
    double m_linger = 0;
    bool m_endsByItself = false;
    bool m_isHeld = false;
    MainLoop::TimerID m_end = 0;
};

} // namespace Kovrel
