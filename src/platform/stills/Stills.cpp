#include "platform/stills/Stills.h"

#include "platform/stills/X11Stills.h"

namespace Kovrel {

std::unique_ptr<DesktopStills> Stills::open(const QByteArray& display)
{
    auto connection = std::make_shared<X11Connection>(display);
    if (!connection->isAlive())
        return nullptr;
    return std::make_unique<X11Stills>(std::move(connection));
}

} // namespace Kovrel
