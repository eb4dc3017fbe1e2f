#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "hotkeys/GlobalHotkeyManager.h"
#include "hotkeys/SystemShortcutManager.h"
#include "ports/HotkeyStatus.h"
#include "ports/Ports.h"

namespace Kovrel {

// The global hotkeys, and the desktop's own shortcuts that are in their way.
class HotkeysFeature : public Feature, private HotkeyStatus {
public:
    HotkeysFeature(Foundation& foundation, Ports& ports);

    void start(const Launch& launch) override;
    std::vector<SettingsPage> settingsPages() const override;
    void finishPending(std::chrono::milliseconds deadline, std::function<void()> done) override;
    void prepareToEnd() override;

private:
    std::optional<QString> refusal(const QString& setting) const override;

    GlobalHotkeyManager::Handlers handlers();
    void perform(const MenuEntry& entry);
    bool isSignedIn() const;
    void takeKeys();

    Foundation& m_foundation;
    const Ports& m_ports;
    SystemShortcutManager m_shortcuts;
    GlobalHotkeyManager m_hotkeys;
    Subscription m_freedShortcuts;
    Subscription m_accountChanges;
};

} // namespace Kovrel
