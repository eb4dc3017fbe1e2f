#pragma once

#include "platform/Lifeline.h"
#include "platform/MainLoop.h"
#include "platform/Observers.h"
#include "platform/PackageManager.h"
#include "platform/Workers.h"
#include "preferences/Preferences.h"

namespace Kovrel {

// Asks the package manager some time after the start and then each day whether it has a newer version of the program,
// as long as the user lets it. Nothing is ever installed; that nothing can be known is no more than a line in the log.
// Main thread, on which there is one timer at most.
class UpdateCheck {
public:
    struct Services {
        MainLoop& loop;
        Workers& workers;
        Preferences& preferences;
        std::shared_ptr<PackageManager> packages;
    };

    // `version`: of the program that runs.
    UpdateCheck(Services services, QString version);
    ~UpdateCheck();
    UpdateCheck(const UpdateCheck&) = delete;
    UpdateCheck& operator=(const UpdateCheck&) = delete;

    void start();
    // For good. A question that is under way is given up.
    void stop();

    // As people read it; no value where none is known.
    const std::optional<QString>& newerVersion() const { return m_newer; }

    Subscription onChange(std::function<void()> observer) { return m_changes.add(std::move(observer)); }

private:
    using Answer = std::expected<QStringList, QString>;

    void followSetting();
    void schedule(MainLoop::Milliseconds delay);
    void ask();
    void land(const Answer& versions);
    void setNewer(std::optional<QString> version);

    Services m_services;
    QString m_version;
    MainLoop::TimerID m_timer = 0;
    std::optional<QString> m_newer;
    std::stop_source m_stop;
    Observers<> m_changes;
    Subscription m_settingChanges;
    Lifeline m_lifeline;
};

} // namespace Kovrel
