#pragma once

#include <memory>

namespace Kovrel {

class Appearance;
class Clipboard;
class ColorSampler;
class DesktopPicture;
class Displays;
class FileManager;
class FilePrograms;
class KeyGrabs;
class LoginItem;
class OverlaySurfaces;
class PackageManager;
class PanelShapes;
class Pointer;
class FilePanel;
class ScreenLock;
class ScreenPixels;
class ShortcutSwitches;
class ToolProcess;
class Windows;

// The desktop that the program runs on: the one door to all its services. `Desktops::open` makes the one that is there.
// Every service lives as long as the desktop. Main thread.
class Desktop {
public:
    virtual ~Desktop() = default;

    virtual Displays& displays() = 0;
    virtual Pointer& pointer() = 0;
    virtual KeyGrabs& keys() = 0;
    virtual OverlaySurfaces& overlay() = 0;
    virtual PanelShapes& panelShapes() = 0;
    virtual ColorSampler& colorSampler() = 0;

    virtual ScreenPixels& pixels() = 0;
    virtual Windows& windows() = 0;
    virtual DesktopPicture& picture() = 0;

    virtual Appearance& appearance() = 0;
    virtual ScreenLock& lock() = 0;
    virtual Clipboard& clipboard() = 0;
    virtual FileManager& fileManager() = 0;
    virtual FilePrograms& programs() = 0;
    virtual FilePanel& filePanel() = 0;
    virtual ToolProcess& tools() = 0;

    // The desktop's own screenshot shortcuts; null where they can't be switched. Jobs on workers share it.
    virtual std::shared_ptr<ShortcutSwitches> shortcuts() = 0;

    // Jobs on workers share it.
    virtual std::shared_ptr<LoginItem> loginItem() = 0;

    // Jobs on workers share it.
    virtual std::shared_ptr<PackageManager> packages() = 0;
};

} // namespace Kovrel
