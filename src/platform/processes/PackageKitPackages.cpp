#include "platform/processes/PackageKitPackages.h"

#include "platform/processes/PackageKitQuery.h"

namespace Kovrel {

namespace {

constexpr const char* connectionName = "kovrel-packages";

} // namespace

// On a connection of its own: the shared one belongs to the main thread.
std::expected<QStringList, QString> PackageKitPackages::versions(const QString& package, std::stop_token stop) const
{
    const auto bus = QDBusConnection::connectToBus(QDBusConnection::SystemBus, connectionName);
    const auto versions = bus.isConnected() ? PackageKitQuery(bus, m_patience, std::move(stop)).versions(package)
                                            : std::unexpected(QString("there is no system bus"));
    QDBusConnection::disconnectFromBus(connectionName);
    return versions;
}

} // namespace Kovrel
