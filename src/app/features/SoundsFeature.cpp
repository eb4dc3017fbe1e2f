#include "app/features/SoundsFeature.h"

#include "platform/plugins/PluginSoundPlayer.h"

#include <QCoreApplication>

namespace Kovrel {

SoundsFeature::SoundsFeature(Foundation& foundation, Ports& ports)
    : m_sounds(foundation.loop, foundation.workers, foundation.preferences, foundation.trace,
               std::make_unique<PluginSoundPlayer>())
{
    ports.effects.offer(m_sounds);
}

std::vector<SettingsPage> SoundsFeature::settingsPages() const
{
    using namespace Settings;
    return {{.title = QCoreApplication::translate("SettingsPage", "Sounds"),
             .keys = {captureSound.name, soundVolume.name, playToastSound.name}}};
}

std::unique_ptr<Feature> makeSoundsFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<SoundsFeature>(foundation, ports);
}

} // namespace Kovrel
