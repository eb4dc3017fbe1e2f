#pragma once

#include "app/foundation/CommandHandler.h"
#include "app/foundation/Launch.h"
#include "app/foundation/UrlHandler.h"
#include "settings/rows/SettingsPage.h"

#include <chrono>
#include <functional>
#include <vector>

namespace Kovrel {

// A capability of the program. It is built on the Foundation, offers its ports when it is built and asks for those of
// others when it needs them, from `start` on: each may be absent. The phases are called in the order in which they
// stand here, for all features in the order of the FeatureList. Main thread; nothing here blocks.
class Feature {
public:
    virtual ~Feature() = default;

    // What it adds to the program. Asked once, before `start`.
    virtual std::vector<CommandHandler> commands() { return {}; }

    virtual std::vector<UrlHandler> urlHandlers() { return {}; }

    // What users may change of it. Asked when the settings are to be seen; what is handed out lives as long as it does.
    virtual std::vector<SettingsPage> settingsPages() { return {}; }

    virtual void start(const Launch&) {}

    // Makes ready what the user may want at once, and some seconds later what can wait.
    virtual void prewarm() {}

    virtual void prewarmLater() {}

    // The program is about to end: calls back once nothing that the feature must finish is under way, at the latest
    // after the deadline.
    virtual void finishPending(std::chrono::milliseconds deadline, std::function<void()> done)
    {
        (void)deadline;
        done();
    }

    // The last moment of the program.
    virtual void prepareToEnd() {}
};

} // namespace Kovrel
