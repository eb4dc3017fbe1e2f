#include "app/features/ToastsFeature.h"

namespace Kovrel {

ToastsFeature::ToastsFeature(Foundation& foundation, Ports& ports)
    : m_toasts(foundation.loop, foundation.desktop->displays(), foundation.desktop->panelShapes(), ports)
{
    ports.toasts.offer(m_toasts);
}

void ToastsFeature::prewarm()
{
    m_toasts.prewarm();
}

std::unique_ptr<Feature> makeToastsFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<ToastsFeature>(foundation, ports);
}

} // namespace Kovrel
