#pragma once

#include "platform/Desktop.h"
#include "platform/MainLoop.h"
#include "platform/TokenStore.h"
#include "platform/Workers.h"

#include <memory>

namespace Kovrel {

namespace Desktops {

// The desktop that this process runs on. Needs a QGuiApplication.
std::unique_ptr<Desktop> open(MainLoop& loop, Workers& workers);

// The desktop's store of secrets, which needs no display.
std::unique_ptr<TokenStore> openSecrets(MainLoop& loop);

} // namespace Desktops

} // namespace Kovrel
