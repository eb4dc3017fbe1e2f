#include "platform/processes/PackageKitQuery.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>

namespace Kovrel {

namespace {

const QString service = "org.freedesktop.PackageKit";
const QString interfaceOfTransactions = "org.freedesktop.PackageKit.Transaction";
constexpr qulonglong noFilter = 1 << 1; // a set of numbered filters, of which this is "none"
constexpr uint success = 1;

} // namespace

PackageKitQuery::PackageKitQuery(QDBusConnection bus, std::chrono::milliseconds patience, std::stop_token stop)
    : m_bus(std::move(bus)), m_wait(patience, std::move(stop))
{
}

std::expected<QStringList, QString> PackageKitQuery::versions(const QString& package)
{
    m_package = package;
    const QString transaction = createTransaction();
    if (m_failure.isEmpty() && !listen(transaction))
        m_failure = "PackageKit gave no transaction";
    if (m_failure.isEmpty())
        resolve(transaction);
    if (!m_failure.isEmpty())
        return std::unexpected(m_failure);
    return m_versions;
}

QString PackageKitQuery::createTransaction()
{
    QDBusPendingCallWatcher answer(m_bus.asyncCall(
        QDBusMessage::createMethodCall(service, "/org/freedesktop/PackageKit", service, "CreateTransaction")));
    connect(&answer, &QDBusPendingCallWatcher::finished, this, [this] { m_wait.end(); });
    if (!m_wait.wait())
        m_failure = "PackageKit does not answer";
    else if (answer.isError())
        m_failure = answer.error().message();
    return answer.isFinished() ? answer.reply().arguments().value(0).value<QDBusObjectPath>().path() : QString();
}

// Its end is told by a signal, which may come before the answer to the call.
void PackageKitQuery::resolve(const QString& transaction)
{
    auto call = QDBusMessage::createMethodCall(service, transaction, interfaceOfTransactions, "Resolve");
    call << noFilter << QStringList{m_package};
    QDBusPendingCallWatcher answer(m_bus.asyncCall(call));
    connect(&answer, &QDBusPendingCallWatcher::finished, this, [this, &answer] {
        if (!answer.isError())
            return;
        m_failure = answer.error().message();
        m_wait.end();
    });
    if (!m_wait.wait())
        m_failure = "PackageKit does not come to an end";
}

bool PackageKitQuery::listen(const QString& transaction)
{
    const auto hear = [&](const char* signal, const char* slot) {
        return m_bus.connect(service, transaction, interfaceOfTransactions, signal, this, slot);
    };
    return !transaction.isEmpty() && hear("Package", SLOT(packageFound(uint, QString, QString))) &&
           hear("ErrorCode", SLOT(failed(uint, QString))) && hear("Finished", SLOT(finished(uint, uint)));
}

void PackageKitQuery::packageFound(uint, const QString& id, const QString&)
{
    const QStringList parts = id.split(';');
    if (parts.size() == 4 && parts[0] == m_package)
        m_versions << parts[1];
}

void PackageKitQuery::failed(uint, const QString& details)
{
    m_failure = "PackageKit: " + details.simplified();
}

void PackageKitQuery::finished(uint exit, uint)
{
    if (exit != success && m_failure.isEmpty())
        m_failure = "PackageKit failed";
    m_wait.end();
}

} // namespace Kovrel
