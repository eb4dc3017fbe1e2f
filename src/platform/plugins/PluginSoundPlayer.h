#pragma once

#include "platform/SoundPlayer.h"

#include <memory>

namespace Kovrel {

// The player of the plugin "sound", which is loaded when it is first opened: most of what it needs is only there for
// sounds.
class PluginSoundPlayer : public SoundPlayer {
public:
    Outcome open() override;
    Outcome play(const QString& sound, double volume) override;
    void close() override;

    // What the plugin exports, as `kovrelMakeSoundPlayer`.
    using Factory = SoundPlayer* (*)();

private:
    Outcome load();

    std::unique_ptr<SoundPlayer> m_player;
};

} // namespace Kovrel
