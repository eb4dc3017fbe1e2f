#pragma once

#include <QString>

namespace Kovrel {

struct MenuEntry;

// The commands that menus, hotkeys and windows offer. Main thread.
class ProgramCommands {
public:
    virtual ~ProgramCommands() = default;

    // Whether a command can be used now.
    virtual bool isEnabled(const MenuEntry& entry) const = 0;
    // One that is not enabled does nothing.
    virtual void perform(const MenuEntry& entry, bool isFromMenu) = 0;

    // As when the program is started once more while it runs.
    virtual void bringForward() = 0;
    virtual void quit(const QString& reason) = 0;
};

} // namespace Kovrel
