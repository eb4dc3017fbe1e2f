#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "editorwindow/EditorWindows.h"
#include "platform/plugins/PluginPicturePrinter.h"
#include "ports/Ports.h"

namespace Kovrel {

// The windows in which captures and pictures are edited.
class EditorFeature : public Feature {
public:
    EditorFeature(Foundation& foundation, Ports& ports);

    std::vector<SettingsPage> settingsPages() override;
    void finishPending(std::chrono::milliseconds deadline, std::function<void()> done) override;

private:
    Foundation& m_foundation;
    const Ports& m_ports;
    PluginPicturePrinter m_printer;
    EditorWindows m_windows;
};

} // namespace Kovrel
