#pragma once

#include "preferences/Preferences.h"

#include <QDateTime>

namespace Kovrel {

namespace LanguageChoice {

// When the languages in which text is read were seen to be others than before: text that was read until then may be
// read better now. Invalid where they never were. They may be chosen while the program does not run, so what is seen is
// noted in the settings. Main thread.
QDateTime changed(Preferences& preferences, const QDateTime& now);

} // namespace LanguageChoice

} // namespace Kovrel
