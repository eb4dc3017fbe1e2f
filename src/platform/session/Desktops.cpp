#include "platform/session/Desktops.h"

#include "platform/desktop/KeychainTokenStore.h"
#include "platform/session/X11Desktop.h"

namespace Kovrel {

namespace {

constexpr auto keychainDeadline = std::chrono::seconds(5);

} // namespace

std::unique_ptr<Desktop> Desktops::open(MainLoop& loop, Workers& workers)
{
    return std::make_unique<X11Desktop>(loop, workers);
}

std::unique_ptr<TokenStore> Desktops::openSecrets(MainLoop& loop)
{
    return std::make_unique<KeychainTokenStore>(loop, keychainDeadline);
}

} // namespace Kovrel
