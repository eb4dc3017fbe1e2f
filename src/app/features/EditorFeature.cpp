#include "app/features/EditorFeature.h"

#include "app/foundation/AppPaths.h"
#include "ports/ColorPicking.h"
#include "settings/pages/EditorPage.h"

#include <QCoreApplication>

namespace Kovrel {

EditorFeature::EditorFeature(Foundation& foundation, Ports& ports)
    : m_foundation(foundation),
      m_ports(ports),
      m_printer(foundation.loop, foundation.workers),
      m_windows({foundation.loop, foundation.workers, foundation.preferences, foundation.desktop->filePanel(),
                 foundation.desktop->clipboard(), ports, AppPaths::temporaryFolder(), &m_printer,
                 &foundation.desktop->programs()})
{
    ports.editors.offer(m_windows);
}

std::vector<SettingsPage> EditorFeature::settingsPages()
{
    return {EditorPage::make(m_foundation.preferences, ColorPicking::offeredBy(m_ports.colorPicking))};
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
