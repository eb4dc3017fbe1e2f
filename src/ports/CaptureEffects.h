#pragma once

namespace Kovrel {

// What is heard of a capture. Returns at once; main thread.
class CaptureEffects {
public:
    virtual ~CaptureEffects() = default;

    // A sound will be wanted soon.
    virtual void prewarm() = 0;
    virtual void playShutterIfEnabled() = 0;
    virtual void playToastIfEnabled() = 0;

    // For the settings: the sound just chosen, and how loud sounds are now.
    virtual void previewShutter() = 0;
    virtual void previewVolume() = 0;
    // Takes the volume over from the settings; each sound does so by itself.
    virtual void applyVolume() = 0;
};

} // namespace Kovrel
