#include "sounds/CaptureSounds.h"

#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.sound")

} // namespace

// The player, on the shutter's lane.
class CaptureSounds::Engine {
public:
    explicit Engine(std::unique_ptr<SoundPlayer> player) : m_player(std::move(player)) {}

    void arm() { report(m_player->open()); }

    void play(const char* sound, double volume) { report(m_player->play(sound, volume)); }

    void release() { m_player->close(); }

private:
    void report(const SoundPlayer::Outcome& outcome)
    {
        if (!outcome && !m_isLost)
            qCWarning(log, "Sounds are not heard: %s", qUtf8Printable(outcome.error()));
        m_isLost = !outcome;
    }

    std::unique_ptr<SoundPlayer> m_player;
    bool m_isLost = false;
};

std::optional<CaptureSounds::Cue> CaptureSounds::Bank::shutter(CaptureSound choice)
{
    switch (choice) {
    case CaptureSound::apple:
        return Cue{"apple", 1.0};
    case CaptureSound::pop:
        return Cue{"pop", 1.0};
    case CaptureSound::none:
        break;
    }
    return std::nullopt;
}

// Toasts come without being asked for.
CaptureSounds::Cue CaptureSounds::Bank::toast()
{
    return {"glass", 0.3};
}

CaptureSounds::CaptureSounds(MainLoop& loop, Workers& workers, const Preferences& preferences,
                             const CaptureTrace& trace, std::unique_ptr<SoundPlayer> player)
    : m_loop(loop),
      m_workers(workers),
      m_preferences(preferences),
      m_trace(trace),
      m_engine(std::make_shared<Engine>(std::move(player)))
{
}

CaptureSounds::~CaptureSounds()
{
    m_loop.cancel(m_release);
}

void CaptureSounds::prewarm()
{
    applyVolume();
    if (m_outputVolume == 0 || !Bank::shutter(m_preferences.get(Settings::captureSound)))
        return;
    submit([](Engine& engine) { engine.arm(); });
    scheduleRelease();
}

void CaptureSounds::playShutterIfEnabled()
{
    const CaptureSound choice = m_preferences.get(Settings::captureSound);
    m_trace.mark("shutter (" + rawString(choice) + ")");
    if (const auto cue = Bank::shutter(choice))
        play(*cue);
}

void CaptureSounds::playToastIfEnabled()
{
    if (m_preferences.get(Settings::playToastSound))
        play(Bank::toast());
}

void CaptureSounds::previewShutter()
{
    if (const auto cue = Bank::shutter(m_preferences.get(Settings::captureSound)))
        play(*cue);
}

void CaptureSounds::previewVolume()
{
    play(Bank::shutter(m_preferences.get(Settings::captureSound)).value_or(Bank::toast()));
}

void CaptureSounds::applyVolume()
{
    m_outputVolume = std::clamp(m_preferences.get(Settings::soundVolume), 0.0, 1.0);
}

void CaptureSounds::play(const Cue& cue)
{
    applyVolume();
    if (m_outputVolume == 0)
        return;
    submit([cue, volume = m_outputVolume * cue.gain](Engine& engine) { engine.play(cue.sound, volume); });
    scheduleRelease();
}

void CaptureSounds::submit(std::function<void(Engine&)> work)
{
    m_workers.submit(Lane::shutter, [engine = m_engine, work = std::move(work), &loop = m_loop, asked = m_loop.now()] {
        if (loop.now() - asked <= latestStart)
            work(*engine);
    });
}

void CaptureSounds::scheduleRelease()
{
    m_loop.cancel(m_release);
    m_release = m_loop.after(releaseAfter,
                             [this] { m_workers.submit(Lane::shutter, [engine = m_engine] { engine->release(); }); });
}

} // namespace Kovrel
