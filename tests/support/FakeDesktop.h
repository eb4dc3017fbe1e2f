#pragma once

#include "platform/Desktop.h"
#include "platform/ShortcutSwitches.h"
#include "tests/support/desktop/FakeAppearance.h"
#include "tests/support/desktop/FakeClipboard.h"
#include "tests/support/desktop/FakeColorSampler.h"
#include "tests/support/desktop/FakeDesktopPicture.h"
#include "tests/support/desktop/FakeDisplays.h"
#include "tests/support/desktop/FakeFileManager.h"
#include "tests/support/desktop/FakeFilePanel.h"
#include "tests/support/desktop/FakeFilePrograms.h"
#include "tests/support/desktop/FakeKeyGrabs.h"
#include "tests/support/desktop/FakeLoginItem.h"
#include "tests/support/desktop/FakeOverlaySurfaces.h"
#include "tests/support/desktop/FakePackageManager.h"
#include "tests/support/desktop/FakePanelShapes.h"
#include "tests/support/desktop/FakePointer.h"
#include "tests/support/desktop/FakeScreenLock.h"
#include "tests/support/desktop/FakeScreenPixels.h"
#include "tests/support/desktop/FakeTokenStore.h"
#include "tests/support/desktop/FakeToolProcess.h"
#include "tests/support/desktop/FakeWindows.h"

namespace Kovrel::Testing {

// A desktop of data: displays, windows, pointer and pixels are what the test says, and so is whether a service refuses,
// comes late or never answers.
class FakeDesktop : public Desktop {
public:
    explicit FakeDesktop(MainLoop& loop)
        : m_pointer(loop),
          m_pixels(loop),
          m_overlay(loop, m_displays, m_pixels),
          m_windows(loop),
          m_picture(loop),
          m_clipboard(loop),
          m_programs(loop),
          m_filePanel(loop),
          m_secrets(loop),
          m_tools(loop)
    {
    }

    FakeDisplays& displays() override { return m_displays; }

    FakePointer& pointer() override { return m_pointer; }

    FakeKeyGrabs& keys() override { return m_keys; }

    FakeOverlaySurfaces& overlay() override { return m_overlay; }

    FakePanelShapes& panelShapes() override { return m_panelShapes; }

    FakeColorSampler& colorSampler() override { return m_colorSampler; }

    FakeScreenPixels& pixels() override { return m_pixels; }

    FakeWindows& windows() override { return m_windows; }

    FakeDesktopPicture& picture() override { return m_picture; }

    FakeAppearance& appearance() override { return m_appearance; }

    FakeScreenLock& lock() override { return m_lock; }

    FakeClipboard& clipboard() override { return m_clipboard; }

    FakeFileManager& fileManager() override { return m_fileManager; }

    FakeFilePrograms& programs() override { return m_programs; }

    FakeFilePanel& filePanel() override { return m_filePanel; }

    FakeTokenStore& secrets() { return m_secrets; }

    FakeToolProcess& tools() override { return m_tools; }

    std::shared_ptr<ShortcutSwitches> shortcuts() override { return switches; }

    std::shared_ptr<LoginItem> loginItem() override { return login; }

    std::shared_ptr<PackageManager> packages() override { return packageManager; }

    std::shared_ptr<ShortcutSwitches> switches;
    std::shared_ptr<FakePackageManager> packageManager = std::make_shared<FakePackageManager>();
    std::shared_ptr<FakeLoginItem> login = std::make_shared<FakeLoginItem>();

private:
    FakeDisplays m_displays;
    FakePointer m_pointer;
    FakeKeyGrabs m_keys;
    FakeScreenPixels m_pixels;
    FakeOverlaySurfaces m_overlay;
    FakePanelShapes m_panelShapes;
    FakeColorSampler m_colorSampler;
    FakeWindows m_windows;
    FakeDesktopPicture m_picture;
    FakeAppearance m_appearance;
    FakeScreenLock m_lock;
    FakeClipboard m_clipboard;
    FakeFileManager m_fileManager;
    FakeFilePrograms m_programs;
    FakeFilePanel m_filePanel;
    FakeTokenStore m_secrets;
    FakeToolProcess m_tools;
};

} // namespace Kovrel::Testing
