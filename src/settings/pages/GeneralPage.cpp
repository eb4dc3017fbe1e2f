#include "settings/pages/GeneralPage.h"

namespace Kovrel {

SettingsPage GeneralPage::make(Preferences& preferences, Services services)
{
    const SettingGroup start{
        .title = tr("Start"),
        .rows = {{.label = tr("Start Kovrel at login"),
                  .control = SettingControls::Toggle(),
                  .binding = std::move(services.loginItem),
                  .hint = tr("It waits in the tray, so that its shortcuts work at once."),
                  .keywords = tr("autostart boot launch session"),
                  .remark = std::move(services.loginRemark)}},
    };
    const SettingGroup file{
        .title = tr("Settings File"),
        .rows = {{.label = tr("Export all settings"),
                  .control = SettingControls::Action{tr("Export…"), std::move(services.exportSettings)},
                  .hint = tr("As one file, for another computer or to be kept."),
                  .keywords = tr("backup save move transfer")},
                 {.label = tr("Import settings"),
                  .control = SettingControls::Action{tr("Import…"), std::move(services.importSettings)},
                  .hint = tr("Everything is then as it was when the file was exported."),
                  .keywords = tr("restore load move transfer")}},
    };
    const SettingGroup trouble{
        .title = tr("Troubleshooting"),
        .rows = {{.label = tr("Write the timing of captures to the log"),
                  .control = SettingControls::Toggle(),
                  .binding = SettingBinding::of(preferences, Settings::traceCapture),
                  .hint = tr("Read it with: journalctl --user -t kovrel"),
                  .keywords = tr("debug trace slow problem journal")}},
    };
    return {.tab = SettingsTab::general, .groups = {start, file, trouble}};
}

} // namespace Kovrel
