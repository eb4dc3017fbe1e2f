#pragma once

#include "platform/UserDefaults.h"
#include "platform/desktop/InstanceBus.h"

namespace Kovrel {

// `kovrel preferences list | get KEY | set KEY VALUE | reset KEY`.
namespace PreferencesCommand {

CommandAnswer run(UserDefaults& defaults, const QStringList& operands);

} // namespace PreferencesCommand

} // namespace Kovrel
