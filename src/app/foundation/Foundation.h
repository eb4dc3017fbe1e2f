#pragma once

#include "platform/Desktop.h"
#include "platform/TokenStore.h"
#include "platform/desktop/QtMainLoop.h"
#include "platform/desktop/ThreadWorkers.h"
#include "ports/CaptureTrace.h"
#include "preferences/Preferences.h"

#include <functional>
#include <memory>

namespace Kovrel {

// What every feature is built on. Main thread.
struct Foundation {
    enum class Kind {
        instance, // the program in the tray
        command,  // one command in a process of its own, without a display; changes of settings are on disk at once
    };

    explicit Foundation(Kind kind);

    QtMainLoop loop;
    ThreadWorkers workers;
    UserDefaults defaults;
    Preferences preferences;
    CaptureTrace trace;
    std::unique_ptr<TokenStore> secrets;
    std::unique_ptr<Desktop> desktop; // null for a command
    // Hears what share of a long command is done, on any thread, and 1 at its end; null where nobody watches.
    std::function<void(double)> progress;
};

} // namespace Kovrel
