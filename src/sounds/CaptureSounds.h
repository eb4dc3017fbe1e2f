#pragma once

#include "model/CaptureSound.h"
#include "platform/MainLoop.h"
#include "platform/SoundPlayer.h"
#include "platform/Workers.h"
#include "ports/CaptureEffects.h"
#include "ports/CaptureTrace.h"
#include "preferences/Preferences.h"

#include <memory>
#include <optional>

namespace Kovrel {

// Plays the sounds of captures and toasts on a lane of their own. The player is kept ready for a while after the last
// sound and then released. Without an audio service nothing is heard, which is logged once until there is one again.
class CaptureSounds : public CaptureEffects {
public:
    CaptureSounds(MainLoop& loop, Workers& workers, const Preferences& preferences, const CaptureTrace& trace,
                  std::unique_ptr<SoundPlayer> player);
    ~CaptureSounds() override;

    void prewarm() override;
    void playShutterIfEnabled() override;
    void playToastIfEnabled() override;
    void previewShutter() override;
    void previewVolume() override;
    void applyVolume() override;

    static constexpr auto releaseAfter = std::chrono::seconds(90);
    // A shutter heard later than this belongs to nothing that the user sees.
    static constexpr auto latestStart = std::chrono::milliseconds(400);

private:
    class Engine;

    // A sound of the player and how loud it is among the others.
    struct Cue {
        const char* sound;
        double gain;
    };

    // The cues of the program.
    struct Bank {
        static std::optional<Cue> shutter(CaptureSound choice); // no value: silent
        static Cue toast();
    };

    void play(const Cue& cue);
    void submit(std::function<void(Engine&)> work);
    void scheduleRelease();

    MainLoop& m_loop;
    Workers& m_workers;
    const Preferences& m_preferences;
    const CaptureTrace& m_trace;
    std::shared_ptr<Engine> m_engine; // its jobs may outlive us
    double m_outputVolume = 0;        // 0 to 1
    MainLoop::TimerID m_release = 0;
};

} // namespace Kovrel
