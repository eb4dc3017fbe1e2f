#pragma once

#include "commandline/HotkeyAction.h"
#include "settings/rows/SettingsPage.h"

#include <QCoreApplication>

namespace Kovrel {

struct MenuEntry;

// The key combinations of commands, and those that are borrowed from the desktop for them.
class ShortcutsPage {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::ShortcutsPage)

public:
    struct Services {
        KeyGrabs& keys;
        Preferences& preferences;
        // Why an action's keys can't be had; nothing where they can.
        std::function<std::optional<QString>(HotkeyAction)> refusal;
        // Called when that may have changed.
        std::function<Subscription(std::function<void()>)> onRefusals;
        bool canBorrow = false;                // the desktop's own shortcuts
        std::function<QStringList()> borrowed; // from the desktop now, as people write them
        std::function<void()> giveBack;
    };

    static SettingsPage make(const Services& services);

private:
    static SettingRow hotkey(const Services& services, const MenuEntry& entry);
    static SettingRow borrowed(const Services& services);
};

} // namespace Kovrel
