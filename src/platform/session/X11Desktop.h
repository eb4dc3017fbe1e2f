#pragma once

#include "platform/Desktop.h"
#include "platform/appearance/DesktopAppearance.h"
#include "platform/desktop/DBusFileManager.h"
#include "platform/desktop/DBusScreenLock.h"
#include "platform/desktop/PortalColorSampler.h"
#include "platform/desktop/QtFilePanel.h"
#include "platform/desktop/SpawnedToolProcess.h"
#include "platform/desktop/WorkerFilePrograms.h"
#include "platform/x11/X11Clipboard.h"
#include "platform/x11/X11Displays.h"
#include "platform/x11/X11Pointer.h"
#include "platform/x11/X11ScreenPixels.h"
#include "platform/x11/keys/X11KeyGrabs.h"
#include "platform/x11/overlay/X11OverlaySurfaces.h"
#include "platform/x11/windows/X11DesktopPicture.h"
#include "platform/x11/windows/X11DragAnswers.h"
#include "platform/x11/windows/X11PanelShapes.h"
#include "platform/x11/windows/X11Windows.h"

#include <QObject>

class QScreen;

namespace Kovrel {

// A desktop on an X server, with the connections that it needs: one for the capture lane, and one each for those that
// listen to events on the main thread. What is no display server's business comes from the bus and the toolkit.
class X11Desktop : public Desktop {
public:
    X11Desktop(MainLoop& loop, Workers& workers);

    Displays& displays() override { return m_displays; }

    Pointer& pointer() override { return m_pointer; }

    KeyGrabs& keys() override { return m_keys; }

    OverlaySurfaces& overlay() override { return m_overlay; }

    PanelShapes& panelShapes() override { return m_panelShapes; }

    ColorSampler& colorSampler() override { return m_bus.colorSampler; }

    ScreenPixels& pixels() override { return m_pixels; }

    Windows& windows() override { return m_windows; }

    DesktopPicture& picture() override { return m_picture; }

    Appearance& appearance() override { return m_appearance; }

    ScreenLock& lock() override { return m_bus.lock; }

    Clipboard& clipboard() override { return m_clipboard; }

    FileManager& fileManager() override { return m_bus.fileManager; }

    FilePrograms& programs() override { return m_programs.forFiles; }

    FilePanel& filePanel() override { return m_filePanel; }

    ToolProcess& tools() override { return m_programs.tools; }

    std::shared_ptr<ShortcutSwitches> shortcuts() override;
    std::shared_ptr<LoginItem> loginItem() override;
    std::shared_ptr<PackageManager> packages() override;

private:
    // What others on the session bus do for us.
    struct OtherPrograms {
        WorkerFilePrograms forFiles;
        SpawnedToolProcess tools{};
    };

    struct BusServices {
        PortalColorSampler colorSampler;
        DBusScreenLock lock = {};
        DBusFileManager fileManager = {};
    };

    // The connection is that of the capture lane.
    X11Desktop(MainLoop& loop, Workers& workers, const std::shared_ptr<X11Connection>& connection);

    void followScreens();
    void follow(QScreen* screen);

    std::shared_ptr<X11ImageReader> m_reader;
    X11Displays m_displays;
    X11KeyGrabs m_keys;
    X11ScreenPixels m_pixels;
    X11Pointer m_pointer;
    X11Windows m_windows;
    X11DesktopPicture m_picture;
    X11OverlaySurfaces m_overlay;
    X11PanelShapes m_panelShapes;
    DesktopAppearance m_appearance;
    BusServices m_bus;
    X11Clipboard m_clipboard;
    X11DragAnswers m_dragAnswers;
    OtherPrograms m_programs;
    QtFilePanel m_filePanel;
    QObject m_context; // of connections to what outlives us
};

} // namespace Kovrel
