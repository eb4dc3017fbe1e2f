#include "settings/pages/ShortcutsPage.h"

#include "commandline/CommandTable.h"
#include "hotkeys/HotkeySettings.h"

namespace Kovrel {

SettingsPage ShortcutsPage::make(const Services& services)
{
    SettingGroup hotkeys{.title = tr("From Anywhere"),
                         .rows = {},
                         .help = tr("Click a shortcut and type the new one. Backspace clears it, Escape leaves it.")};
    for (const MenuEntry& entry : CommandTable::menu())
        if (entry.hotkey)
            hotkeys.rows.push_back(hotkey(services, entry));
    return {.tab = SettingsTab::shortcuts,
            .groups = {hotkeys, {.title = tr("The Desktop's Own"), .rows = {borrowed(services)}}}};
}

SettingRow ShortcutsPage::hotkey(const Services& services, const MenuEntry& entry)
{
    const HotkeyAction action = *entry.hotkey;
    SettingBinding binding = SettingBinding::of(services.preferences, HotkeySettings::keyOf(action));
    binding.observe = services.onRefusals;
    return {.label = QCoreApplication::translate("CommandTable", entry.label),
            .control = SettingControls::Hotkey{[&keys = services.keys](std::function<void(KeyGrabs::Typed)> typed) {
                return keys.listen(std::move(typed));
            }},
            .binding = std::move(binding),
            .keywords = tr("hotkey keyboard keys shortcut combination"),
            .remark = [refusal = services.refusal, action](const Reply<SettingRemark>& reply) {
                const auto reason = refusal(action);
                reply({reason.value_or(QString()), true});
            }};
}

SettingRow ShortcutsPage::borrowed(const Services& services)
{
    const auto hint = services.canBorrow
                          ? tr("Kovrel borrows them while it runs. Giving them back clears Kovrel's own.")
                          : tr("This desktop's screenshot shortcuts can't be switched off from here. Where it answers "
                               "Super+Shift+3, 4 or 5 itself, turn that off in its own settings.");
    return {.label = tr("Screenshot shortcuts of the desktop"),
            .control =
                SettingControls::Action{tr("Give Back"), [giveBack = services.giveBack](QWindow*) { giveBack(); }},
            .binding = {.key = Settings::takenDesktopShortcuts.name, .observe = services.onRefusals},
            .hint = hint,
            .keywords = tr("system gnome kde plasma print conflict"),
            .isEnabled = [borrowed = services.borrowed] { return !borrowed().isEmpty(); },
            .remark =
                [services](const Reply<SettingRemark>& reply) {
                    const QStringList keys = services.borrowed();
                    reply({keys.isEmpty() ? QString() : tr("Borrowed now: %1").arg(keys.join(", "))});
                }};
}

} // namespace Kovrel
