#include "platform/plugins/PluginSoundPlayer.h"

#include "platform/plugins/Plugins.h"

namespace Kovrel {

SoundPlayer::Outcome PluginSoundPlayer::load()
{
    if (m_player)
        return {};
    const auto factory = Plugins::find("sound", "kovrelMakeSoundPlayer");
    if (!factory)
        return std::unexpected(factory.error());
    m_player.reset(reinterpret_cast<Factory>(*factory)());
    return {};
}

SoundPlayer::Outcome PluginSoundPlayer::open()
{
    const Outcome loaded = load();
    return loaded ? m_player->open() : loaded;
}

SoundPlayer::Outcome PluginSoundPlayer::play(const QString& sound, double volume)
{
    const Outcome loaded = load();
    return loaded ? m_player->play(sound, volume) : loaded;
}

void PluginSoundPlayer::close()
{
    if (m_player)
        m_player->close();
}

} // namespace Kovrel
