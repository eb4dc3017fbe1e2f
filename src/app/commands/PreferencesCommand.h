#pragma once

#include "model/CommandAnswer.h"
#include "platform/Reply.h"
#include "platform/files/UserDefaults.h"

namespace Kovrel {

// `kovrel preferences list | get KEY | set KEY VALUE | reset KEY`.
namespace PreferencesCommand {

// Answers once a change is in the file, or can't be had there.
void run(UserDefaults& defaults, const QStringList& operands, const Reply<CommandAnswer>& reply);

} // namespace PreferencesCommand

} // namespace Kovrel
