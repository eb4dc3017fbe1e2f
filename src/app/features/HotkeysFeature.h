#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "hotkeys/GlobalHotkeyManager.h"
#include "hotkeys/SystemShortcutManager.h"
#include "platform/Lifeline.h"
#include "ports/HotkeyStatus.h"
#include "ports/Ports.h"

#include <QCoreApplication>

#include <set>

namespace Kovrel {

// The global hotkeys, and the desktop's own shortcuts that are in their way.
class HotkeysFeature : public Feature, private HotkeyStatus {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::HotkeysFeature)

public:
    HotkeysFeature(Foundation& foundation, Ports& ports);

    void start(const Launch& launch) override;
    std::vector<SettingsPage> settingsPages() override;
    void finishPending(std::chrono::milliseconds deadline, std::function<void()> done) override;
    void prepareToEnd() override;

private:
    // HotkeyStatus
    std::optional<QString> refusal(const QString& setting) const override;

    Subscription onRefusals(std::function<void()> observer) override { return m_hotkeys.onPass(std::move(observer)); }

    QStringList borrowedKeys() const override { return m_shortcuts.borrowedKeys(); }

    GlobalHotkeyManager::Handlers handlers();
    void perform(const MenuEntry& entry);
    bool isSignedIn() const;
    void takeKeys();
    void tellRefusals();
    std::optional<QString> reasonOf(HotkeyAction action) const;

    Foundation& m_foundation;
    const Ports& m_ports;
    SystemShortcutManager m_shortcuts;
    GlobalHotkeyManager m_hotkeys;
    std::set<HotkeyAction> m_toldRefusals;
    Subscription m_freedShortcuts;
    Subscription m_accountChanges;
    Lifeline m_lifeline;
};

} // namespace Kovrel
