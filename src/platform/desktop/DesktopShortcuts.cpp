#include "platform/desktop/DesktopShortcuts.h"

#include "platform/desktop/GnomeShortcuts.h"
#include "platform/desktop/KdeShortcuts.h"

namespace Kovrel {

std::shared_ptr<ShortcutSwitches> DesktopShortcuts::find()
{
    // Names of desktops, the most special one first: "ubuntu:GNOME".
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toUpper().split(':');
    if (desktops.contains("GNOME"))
        return std::make_shared<GnomeShortcuts>();
    if (desktops.contains("KDE"))
        return std::make_shared<KdeShortcuts>();
    return nullptr;
}

} // namespace Kovrel
