#pragma once

#include "app/foundation/Foundation.h"
#include "platform/Lifeline.h"
#include "platform/Observers.h"
#include "settings/rows/SettingRow.h"

namespace Kovrel {

// Whether the program starts with the session, as far as it is known: what is on the disk is asked for by `read`. Main
// thread, which does not wait.
class LoginSwitch {
public:
    // Needs the desktop.
    explicit LoginSwitch(Foundation& foundation) : m_foundation(foundation) {}

    bool isOn() const { return m_isOn; }

    void read();
    void set(bool isOn);

    // Called when it was read or set.
    Subscription onChange(std::function<void()> observer) { return m_changes.add(std::move(observer)); }

    // For a row of the settings.
    SettingBinding binding();

    // Why the last change failed.
    SettingRemark remark() const { return {m_failure, true}; }

private:
    struct State {
        bool isOn = false;
        QString failure = {};
    };

    void land(const State& state);

    Foundation& m_foundation;
    bool m_isOn = false;
    QString m_failure;
    Observers<> m_changes;
    Lifeline m_lifeline;
};

} // namespace Kovrel
