#pragma once

#include <QDateTime>

#include <chrono>
#include <functional>

namespace Kovrel {

// The door to time and to the main thread. Everything but `post` is called on the main thread only.
class MainLoop {
public:
    using TimerID = quint64; // 0 is none
    using Milliseconds = std::chrono::milliseconds;

    virtual ~MainLoop() = default;

    // Monotonic, from an arbitrary start. Safe on any thread.
    virtual std::chrono::microseconds now() const = 0;
    // The wall clock, for what people read.
    virtual QDateTime date() const = 0;

    virtual TimerID after(Milliseconds delay, std::function<void()> work) = 0;
    virtual void cancel(TimerID timer) = 0;

    // Runs the work on the main thread, in order of posting, never inside the call. From any thread.
    virtual void post(std::function<void()> work) = 0;
};

} // namespace Kovrel
