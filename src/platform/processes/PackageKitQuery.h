#pragma once

#include "platform/processes/WorkerWait.h"

#include <QDBusConnection>
#include <QObject>
#include <QStringList>

#include <expected>

namespace Kovrel {

// One question to PackageKit, in a transaction of its own. Belongs to the worker that asks.
class PackageKitQuery : public QObject {
    Q_OBJECT

public:
    PackageKitQuery(QDBusConnection bus, std::chrono::milliseconds patience, std::stop_token stop);

    // All versions of a package that it knows. The failure is one line for the log.
    std::expected<QStringList, QString> versions(const QString& package);

private Q_SLOTS:
    void packageFound(uint info, const QString& id, const QString& summary);
    void failed(uint code, const QString& details);
    void finished(uint exit, uint milliseconds);

private:
    // Each leaves why it fails in `m_failure`.
    QString createTransaction();
    void resolve(const QString& transaction);
    bool listen(const QString& transaction);

    QDBusConnection m_bus;
    WorkerWait m_wait;
    QString m_package;
    QStringList m_versions;
    QString m_failure;
};

} // namespace Kovrel
