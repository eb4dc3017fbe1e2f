#include "platform/desktop/DBusScreenLock.h"

#include <QDBusConnection>

namespace Kovrel {

DBusScreenLock::DBusScreenLock()
{
    for (const char* interface : {"org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver", "org.cinnamon.ScreenSaver",
                                  "org.mate.ScreenSaver", "org.xfce.ScreenSaver"})
        QDBusConnection::sessionBus().connect({}, {}, interface, "ActiveChanged", this, SLOT(activeChanged(bool)));
}

void DBusScreenLock::activeChanged(bool isActive)
{
    m_isLocked = isActive;
    if (isActive)
        m_observers.notify();
}

} // namespace Kovrel
