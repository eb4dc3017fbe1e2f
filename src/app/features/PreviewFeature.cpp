#include "app/features/PreviewFeature.h"

namespace Kovrel {

PreviewFeature::PreviewFeature(Foundation& foundation, Ports& ports)
    : m_windows({foundation.loop, foundation.workers, foundation.preferences, foundation.desktop->programs(), ports})
{
    ports.previews.offer(m_windows);
}

std::unique_ptr<Feature> makePreviewFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<PreviewFeature>(foundation, ports);
}

} // namespace Kovrel
