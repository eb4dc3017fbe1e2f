#include "app/features/UpdatesFeature.h"

#include "settings/pages/UpdatesPage.h"

namespace Kovrel {

UpdatesFeature::UpdatesFeature(Foundation& foundation, Ports& ports) : m_foundation(foundation)
{
    ports.updates.offer(*this);
}

void UpdatesFeature::start(const Launch& launch)
{
    m_check =
        std::make_unique<UpdateCheck>(UpdateCheck::Services{m_foundation.loop, m_foundation.workers,
                                                            m_foundation.preferences, m_foundation.desktop->packages()},
                                      launch.version);
    m_found = m_check->onChange([this] { m_changes.notify(); });
    m_check->start();
}

std::optional<QString> UpdatesFeature::newerVersion() const
{
    return m_check ? m_check->newerVersion() : std::nullopt;
}

std::vector<SettingsPage> UpdatesFeature::settingsPages()
{
    return {UpdatesPage::make({.preferences = m_foundation.preferences,
                               .newerVersion = [this] { return newerVersion(); },
                               .onChange = [this](auto changed) { return onChange(std::move(changed)); }})};
}

void UpdatesFeature::prepareToEnd()
{
    if (m_check)
        m_check->stop();
}

std::unique_ptr<Feature> makeUpdatesFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<UpdatesFeature>(foundation, ports);
}

} // namespace Kovrel
