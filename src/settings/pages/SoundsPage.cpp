#include "settings/pages/SoundsPage.h"

#include "ports/CaptureEffects.h"
#include "settings/rows/SettingOptions.h"

namespace Kovrel {

SettingsPage SoundsPage::make(Preferences& preferences, CaptureEffects& effects)
{
    const auto isHeard = [&preferences] {
        return preferences.get(Settings::captureSound) != CaptureSound::none ||
               preferences.get(Settings::playToastSound);
    };
    const auto preview = [&effects] { effects.previewShutter(); };
    const SettingGroup sounds{
        .title = tr("Captures and Messages"),
        .rows = {{.label = tr("Sound of captures"),
                  .control = SettingOptions::choice<CaptureSound>({{CaptureSound::pop, tr("Pop")},
                                                                   {CaptureSound::apple, tr("Camera shutter")},
                                                                   {CaptureSound::none, tr("None")}}),
                  .binding = SettingBinding::of(preferences, Settings::captureSound),
                  .keywords = tr("shutter audio noise mute silent"),
                  .changed = preview,
                  .action = SettingControls::Action{tr("Play"), [preview](QWindow*) { preview(); }}},
                 {.label = tr("Sound of messages"),
                  .control = SettingControls::Toggle(),
                  .binding = SettingBinding::of(preferences, Settings::playToastSound),
                  .keywords = tr("toast notification audio mute silent")},
                 {.label = tr("Volume"),
                  .control = SettingOptions::percent(0, 1, 0.05),
                  .binding = SettingBinding::of(preferences, Settings::soundVolume),
                  .keywords = tr("loud quiet audio mute silent"),
                  .isEnabled = isHeard,
                  .changed = [&effects] { effects.previewVolume(); }}},
    };
    return {.tab = SettingsTab::sounds, .groups = {sounds}};
}

} // namespace Kovrel
