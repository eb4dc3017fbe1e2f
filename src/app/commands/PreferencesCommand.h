#pragma once

#include "model/CommandAnswer.h"
#include "platform/UserDefaults.h"

namespace Kovrel {

// `kovrel preferences list | get KEY | set KEY VALUE | reset KEY`.
namespace PreferencesCommand {

CommandAnswer run(UserDefaults& defaults, const QStringList& operands);

} // namespace PreferencesCommand

} // namespace Kovrel
