#include "platform/desktop/DBusConnectionLoss.h"

#include <QDBusConnection>

namespace Kovrel {

DBusConnectionLoss::DBusConnectionLoss(std::function<void()> callback) : m_callback(std::move(callback))
{
    QDBusConnection::sessionBus().connect({}, "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local",
                                          "Disconnected", this, SLOT(disconnected()));
}

} // namespace Kovrel
