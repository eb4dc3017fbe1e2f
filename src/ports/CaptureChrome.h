#pragma once

namespace Kovrel {

// Windows of ours that float above everything and must not be in a capture. Main thread.
class CaptureChrome {
public:
    virtual ~CaptureChrome() = default;

    // Hides them, or shows again what this hid. Answers whether the screen changes by it.
    virtual bool setHiddenForCapture(bool isHidden) = 0;

    // Whether they make way also for a user who wants our windows in captures.
    virtual bool alwaysMakesWay() const { return false; }
};

} // namespace Kovrel
