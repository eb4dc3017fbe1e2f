#pragma once

#include "platform/DesktopStills.h"

#include <QByteArray>

#include <memory>

namespace Kovrel {

namespace Stills {

// `display` as in DISPLAY; empty: the environment's. Null where no display server answers.
std::unique_ptr<DesktopStills> open(const QByteArray& display);

} // namespace Stills

} // namespace Kovrel
