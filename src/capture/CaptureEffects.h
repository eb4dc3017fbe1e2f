#pragma once

namespace Kovrel {

// What is heard of a capture. Returns at once; main thread.
class CaptureEffects {
public:
    virtual ~CaptureEffects() = default;
    virtual void prewarm() = 0;
    virtual void playShutterIfEnabled() = 0;
};

} // namespace Kovrel
