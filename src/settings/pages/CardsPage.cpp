#include "settings/pages/CardsPage.h"

#include "cards/PreviewDuration.h"
#include "settings/rows/SettingOptions.h"

namespace Kovrel {

SettingsPage CardsPage::make(Preferences& preferences, const QString& help)
{
    const SettingGroup cards{
        .title = tr("Cards"),
        .rows = {{.label = tr("Corner of the screen"),
                  .control = SettingControls::Corner(),
                  .binding = SettingBinding::of(preferences, Settings::previewPosition),
                  .hint = tr("Where cards pile up."),
                  .keywords = tr("position place preview left right top bottom pile")},
                 {.label = tr("Follow the pointer to its screen"),
                  .control = SettingControls::Toggle(),
                  .binding = SettingBinding::of(preferences, Settings::previewsFollowMouse),
                  .hint = tr("Otherwise cards appear on the primary screen."),
                  .keywords = tr("mouse display monitor preview")},
                 duration(preferences, help),
                 {.label = tr("When the time is up"),
                  .control = SettingOptions::choice<AutoCloseAction>(
                      {{AutoCloseAction::justClose, tr("Close the card")},
                       {AutoCloseAction::saveAndClose, tr("Save the capture, then close")}}),
                  .binding = SettingBinding::of(preferences, Settings::previewAutoCloseAction),
                  .keywords = tr("countdown auto-close save preview"),
                  .isEnabled = [&preferences] { return preferences.get(Settings::previewDurationSeconds) >= 0; }}},
    };
    return {.tab = SettingsTab::afterCapture, .groups = {cards}};
}

SettingRow CardsPage::duration(Preferences& preferences, const QString& help)
{
    SettingControls::Choice choice{.options = {}, .other = [](const QVariant& seconds) {
                                       return PreviewDuration::of(seconds.toDouble()).title();
                                   }};
    for (const PreviewDuration& duration : PreviewDuration::choices())
        choice.options.push_back({duration.seconds(), duration.title()});
    SettingBinding binding = SettingBinding::of(preferences, Settings::previewDurationSeconds);
    binding.read = [&preferences] {
        return PreviewDuration::of(preferences.get(Settings::previewDurationSeconds)).seconds();
    };
    return {.label = tr("Close by themselves"),
            .control = choice,
            .binding = std::move(binding),
            .hint = help,
            .keywords = tr("countdown auto-close duration seconds keep preview")};
}

} // namespace Kovrel
