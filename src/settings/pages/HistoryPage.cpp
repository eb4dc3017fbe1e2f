#include "settings/pages/HistoryPage.h"

#include "history/HistoryQuestions.h"
#include "history/records/Retention.h"

#include <QLocale>

namespace Kovrel {

SettingsPage HistoryPage::make(const Services& services)
{
    const SettingRow name{.label = tr("Name of the list of all captures"),
                          .control = SettingControls::Text(),
                          .binding = SettingBinding::of(services.preferences, Settings::historyAllName),
                          .keywords = tr("timeline title all")};
    return {.tab = SettingsTab::history,
            .groups = {{.title = tr("Recent Captures"),
                        .rows = {enabled(services), retention(services), name},
                        .help = tr("Captures in lists are kept until you delete them, and don't count.")}}};
}

SettingRow HistoryPage::enabled(const Services& services)
{
    return {.label = tr("Keep captures in the history"),
            .control = SettingControls::Toggle(),
            .binding = SettingBinding::of(services.preferences, Settings::historyEnabled),
            .hint = tr("Everything stays on this computer."),
            .keywords = tr("record turn off privacy recent"),
            .question = [services](const QVariant& isOn) -> std::optional<Question> {
                if (isOn.toBool())
                    return std::nullopt;
                return Question{HistoryQuestions::turnOffQuestion(services.unsavedCount()),
                                HistoryQuestions::turnOffExplanation(), tr("Turn Off")};
            }};
}

SettingRow HistoryPage::retention(const Services& services)
{
    const auto title = [](int count) {
        return count == 1 ? tr("1 capture") : tr("%1 captures").arg(QLocale().toString(count));
    };
    SettingControls::Choice choice{.options = {},
                                   .other = [title](const QVariant& setting) { return title(setting.toInt()); }};
    for (const int count : Retention::choices)
        choice.options.push_back({count, title(count)});
    SettingBinding binding = SettingBinding::of(services.preferences, Settings::historyRetentionCount);
    binding.read = [&preferences = services.preferences] {
        return Retention::cap(preferences.get(Settings::historyRetentionCount));
    };
    return {.label = tr("Keep the newest"),
            .control = choice,
            .binding = std::move(binding),
            .keywords = tr("retention number limit how many delete old"),
            .isEnabled = [&preferences = services.preferences] { return preferences.get(Settings::historyEnabled); },
            .question = [services](const QVariant& setting) -> std::optional<Question> {
                const int surplus = services.surplusOf(setting.toInt());
                if (surplus == 0)
                    return std::nullopt;
                return Question{HistoryQuestions::retentionQuestion(surplus), HistoryQuestions::retentionExplanation(),
                                tr("Delete")};
            }};
}

} // namespace Kovrel
