#include "app/foundation/Foundation.h"

#include "app/foundation/AppPaths.h"
#include "platform/session/Desktops.h"

namespace Kovrel {

Foundation::Foundation(Kind kind)
    : workers(kind == Kind::command ? ThreadWorkers::WithoutThread::doneAtOnce : ThreadWorkers::WithoutThread::refused),
      defaults(kind == Kind::instance ? UserDefaults(AppPaths::preferencesFile(), loop, workers)
                                      : UserDefaults(AppPaths::preferencesFile())),
      preferences(defaults),
      trace(loop, [this] { return preferences.get(Settings::traceCapture); }),
      secrets(Desktops::openSecrets(loop)),
      desktop(kind == Kind::instance ? Desktops::open(loop, workers) : nullptr)
{
}

} // namespace Kovrel
