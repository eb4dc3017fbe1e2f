#pragma once

#include <QString>

namespace Kovrel {

struct MenuEntry;

// The commands that menus, hotkeys and windows offer. Main thread.
class ProgramCommands {
public:
    virtual ~ProgramCommands() = default;

    // Whether there is anything that runs the command.
    virtual bool isOffered(const MenuEntry& entry) const = 0;
    // Whether it can be used now.
    virtual bool isEnabled(const MenuEntry& entry) const = 0;
    // One that can't be used now tells why, or shows what helps; in a menu it is not enabled and does nothing.
    virtual void perform(const MenuEntry& entry, bool isFromMenu) = 0;

    // As when the program is started once more while it runs.
    virtual void bringForward() = 0;
    virtual void quit(const QString& reason) = 0;
};

} // namespace Kovrel
