#include "platform/session/DesktopSession.h"

#include "platform/x11/X11Connection.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>

namespace Kovrel {

DesktopSession::Kind DesktopSession::kind()
{
    // X programs on a Wayland desktop see only each other, and the screen as black.
    if (qgetenv("XDG_SESSION_TYPE") == "wayland" || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return Kind::wayland;
    return qEnvironmentVariableIsEmpty("DISPLAY") ? Kind::none : Kind::x11;
}

std::shared_ptr<void> DesktopSession::reachDisplay()
{
    if (!qEnvironmentVariableIsEmpty("DISPLAY")) {
        auto connection = std::make_shared<X11Connection>();
        return connection->isAlive() ? connection : nullptr;
    }
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms");
    const bool canShowWindows = kind() == Kind::wayland && !plugins.entryList({"libqwayland*"}).isEmpty();
    return canShowWindows ? std::make_shared<char>() : nullptr;
}

QString DesktopSession::obstacle()
{
    if (kind() == Kind::wayland)
        return QCoreApplication::translate(
            "DesktopSession", "Kovrel can't capture a Wayland session yet. Log out, choose an X11 (Xorg) session at "
                              "the login screen and start Kovrel there.");
    return {};
}

} // namespace Kovrel
