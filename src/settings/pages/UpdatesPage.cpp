#include "settings/pages/UpdatesPage.h"

namespace Kovrel {

SettingsPage UpdatesPage::make(const Services& services)
{
    SettingBinding binding = SettingBinding::of(services.preferences, Settings::checksForUpdates);
    binding.observe = services.onChange;
    const auto remark = [newerVersion = services.newerVersion](const Reply<SettingRemark>& reply) {
        const auto version = newerVersion();
        reply({version ? tr("Kovrel %1 is available from your package manager.").arg(*version) : QString()});
    };
    return {.tab = SettingsTab::general,
            .groups = {{.title = tr("Updates"),
                        .rows = {{.label = tr("Tell me of newer versions"),
                                  .control = SettingControls::Toggle(),
                                  .binding = std::move(binding),
                                  .hint = tr("Once a day Kovrel asks the package manager; it installs nothing."),
                                  .keywords = tr("upgrade new release version check"),
                                  .remark = remark}}}}};
}

} // namespace Kovrel
