#include "platform/session/DesktopSession.h"

#include "platform/x11/X11Connection.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>

namespace Kovrel {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(DesktopSession)
};

// What login screens call the session on an X server.
QString x11Session()
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toUpper().split(':');
    if (desktops.contains("KDE"))
        return Texts::tr("“Plasma (X11)”");
    if (desktops.contains("UBUNTU"))
        return Texts::tr("“Ubuntu on Xorg”");
    return desktops.contains("GNOME") ? Texts::tr("“GNOME on Xorg”")
                                      : Texts::tr("one with “X11” or “Xorg” in its name");
}

} // namespace

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
    const QString reason = obstacleReason();
    if (reason.isEmpty())
        return {};
    return reason + ' ' +
           Texts::tr("Log out, choose an X11 (Xorg) session at the login screen and start Kovrel there.");
}

QString DesktopSession::obstacleReason()
{
    return kind() == Kind::wayland ? Texts::tr("Kovrel can't capture a Wayland session yet.") : QString();
}

QStringList DesktopSession::obstacleRemedy()
{
    return {Texts::tr("Log out of this session."),
            Texts::tr("At the login screen, choose %1 from the list of sessions.").arg(x11Session()),
            Texts::tr("Log in, and start Kovrel again.")};
}

} // namespace Kovrel
