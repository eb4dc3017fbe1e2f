#include "app/features/SoundsFeature.h"

#include "platform/plugins/PluginSoundPlayer.h"

namespace Kovrel {

SoundsFeature::SoundsFeature(Foundation& foundation, Ports& ports)
    : m_sounds(foundation.loop, foundation.workers, foundation.preferences, foundation.trace,
               std::make_unique<PluginSoundPlayer>())
{
    ports.effects.offer(m_sounds);
}

std::unique_ptr<Feature> makeSoundsFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<SoundsFeature>(foundation, ports);
}

} // namespace Kovrel
