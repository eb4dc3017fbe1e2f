#include "app/features/EditorFeature.h"

#include "settings/pages/EditorPage.h"

#include <QCoreApplication>

namespace Kovrel {

EditorFeature::EditorFeature(Foundation& foundation, Ports& ports)
    : m_foundation(foundation),
      m_windows({foundation.loop, foundation.workers, foundation.preferences, foundation.desktop->filePanel(), ports,
                 &foundation.desktop->programs()})
{
    ports.editors.offer(m_windows);
}

std::vector<SettingsPage> EditorFeature::settingsPages()
{
    return {EditorPage::make(m_foundation.preferences)};
}

void EditorFeature::finishPending(std::chrono::milliseconds deadline, std::function<void()> done)
{
    m_windows.finishPending(deadline, std::move(done));
}

std::unique_ptr<Feature> makeEditorFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<EditorFeature>(foundation, ports);
}

} // namespace Kovrel
