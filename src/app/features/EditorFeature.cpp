#include "app/features/EditorFeature.h"

#include "app/foundation/AppPaths.h"

#include <QCoreApplication>

namespace Kovrel {

EditorFeature::EditorFeature(Foundation& foundation, Ports& ports)
    : m_printer(foundation.loop, foundation.workers),
      m_windows({foundation.loop, foundation.workers, foundation.preferences, foundation.desktop->savePanel(),
                 foundation.desktop->clipboard(), ports, AppPaths::temporaryFolder(), &m_printer,
                 &foundation.desktop->programs()})
{
    ports.editors.offer(m_windows);
}

std::vector<SettingsPage> EditorFeature::settingsPages() const
{
    return {{QCoreApplication::translate("EditorFeature", "Editor"),
             {Settings::escCopiesAndCloses.name, Settings::highlighterAutoSize.name, Settings::measureUnit.name}}};
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
