#include "settings/pages/CapturePage.h"

#include "settings/rows/SettingOptions.h"

namespace Kovrel {

SettingsPage CapturePage::make(Preferences& preferences, const ColorPick& pick)
{
    return {.tab = SettingsTab::capture,
            .groups = {screens(preferences),
                       {.title = tr("Self-Timer"), .rows = {timer(preferences)}},
                       windows(preferences, pick)}};
}

SettingGroup CapturePage::screens(Preferences& preferences)
{
    using SettingControls::Toggle;
    return {
        .title = tr("Screen"),
        .rows = {{.label = tr("Freeze the screen while selecting"),
                  .control = Toggle(),
                  .binding = SettingBinding::of(preferences, Settings::freezeScreenDuringSelection),
                  .hint = tr("Videos and menus stand still. Without it the screen lives on until you let go."),
                  .keywords = tr("still live overlay area")},
                 {.label = tr("Show the pointer in full-screen captures"),
                  .control = Toggle(),
                  .binding = SettingBinding::of(preferences, Settings::showCursorInCapture),
                  .keywords = tr("mouse cursor")},
                 {.label = tr("Hide Kovrel's own windows during captures"),
                  .control = Toggle(),
                  .binding = SettingBinding::of(preferences, Settings::hideChromeFromRecordings),
                  .hint = tr("Cards and messages step aside. Pinned captures stay: you have put them there."),
                  .keywords = tr("chrome cards toasts recording")}},
    };
}

SettingRow CapturePage::timer(Preferences& preferences)
{
    const auto title = [](int seconds) { return seconds == 1 ? tr("1 second") : tr("%1 seconds").arg(seconds); };
    SettingControls::Choice choice{.options = {},
                                   .other = [title](const QVariant& seconds) { return title(seconds.toInt()); }};
    for (const int seconds : {3, 5, 10, 15, 30})
        choice.options.push_back({seconds, title(seconds)});
    SettingBinding binding = SettingBinding::of(preferences, Settings::selfTimerSeconds);
    binding.read = [&preferences] { return preferences.selfTimerSeconds(); };
    return {.label = tr("Count down from"),
            .control = choice,
            .binding = std::move(binding),
            .hint = tr("For menus and whatever closes when the keyboard is used. Escape ends the count."),
            .keywords = tr("delay countdown timed seconds")};
}

SettingGroup CapturePage::windows(Preferences& preferences, const ColorPick& pick)
{
    using enum WindowBackdropStyle;
    return {
        .title = tr("Windows"),
        .rows = {{.label = tr("Set windows on"),
                  .control = SettingOptions::choice<WindowBackdropStyle>({{wallpaper, tr("The desktop picture")},
                                                                          {solidColor, tr("A colour")},
                                                                          {transparent, tr("Nothing, with shadow")},
                                                                          {trimShadow, tr("Nothing, no shadow")}}),
                  .binding = SettingBinding::of(preferences, Settings::windowBackdropStyle),
                  .hint = tr("What surrounds a window that was captured by a click."),
                  .keywords = tr("background wallpaper transparent shadow trim backdrop")},
                 {.label = tr("Colour behind windows"),
                  .control = SettingControls::Color{pick},
                  .binding = SettingBinding::of(preferences, Settings::windowBackdropColorHex),
                  .keywords = tr("background solid backdrop color"),
                  .isEnabled =
                      [&preferences] { return preferences.get(Settings::windowBackdropStyle) == solidColor; }}},
    };
}

} // namespace Kovrel
