#include "app/features/SoundsFeature.h"

#include "platform/plugins/PluginSoundPlayer.h"
#include "settings/pages/SoundsPage.h"

#include <QCoreApplication>

namespace Kovrel {

SoundsFeature::SoundsFeature(Foundation& foundation, Ports& ports)
    : m_preferences(foundation.preferences),
      m_sounds(foundation.loop, foundation.workers, foundation.preferences, foundation.trace,
               std::make_unique<PluginSoundPlayer>())
{
    ports.effects.offer(m_sounds);
}

std::vector<SettingsPage> SoundsFeature::settingsPages()
{
    return {SoundsPage::make(m_preferences, m_sounds)};
}

std::unique_ptr<Feature> makeSoundsFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<SoundsFeature>(foundation, ports);
}

} // namespace Kovrel
