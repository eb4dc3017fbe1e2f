#pragma once

#include "platform/MainLoop.h"

#include <atomic>
#include <functional>

namespace Kovrel {

// The timing log of the capture flow: category "com.kovrel.capture", each line the time since `begin` as "%8.1fms  "
// followed by the message. Writes nothing unless the user turned "traceCapture" on. Marks may come from any thread.
class CaptureTrace {
public:
    // `isEnabled` is asked at every mark and must be safe on any thread.
    CaptureTrace(const MainLoop& loop, std::function<bool()> isEnabled);

    // Starts the clock; called when a hotkey is pressed or a command arrives.
    void begin();
    void mark(const QString& message) const;

private:
    const MainLoop& m_loop;
    std::function<bool()> m_isEnabled;
    std::atomic<qint64> m_startMicroseconds;
};

} // namespace Kovrel
