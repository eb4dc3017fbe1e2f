#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "capture/delivery/CaptureOutput.h"
#include "ports/Ports.h"
#include "saving/ClipboardService.h"
#include "saving/EditorSaves.h"

namespace Kovrel {

// Where captures go: files and the clipboard.
class SavingFeature : public Feature {
public:
    SavingFeature(Foundation& foundation, Ports& ports);

    std::vector<SettingsPage> settingsPages() override;
    void start(const Launch& launch) override;
    void finishPending(std::chrono::milliseconds deadline, std::function<void()> done) override;

private:
    void ensureDefaultSaveFolder();
    void sweepTemporaryFiles();

    Foundation& m_foundation;
    ClipboardService m_clipboard;
    EditorSaves m_editorSaves;
    CaptureOutput m_output;
};

} // namespace Kovrel
