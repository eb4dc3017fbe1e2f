#include "updates/PackageVersion.h"

#include <QVersionNumber>

namespace Kovrel {

namespace {

QString upstream(const QString& version)
{
    return version.section(':', -1, -1).section('-', 0, 0);
}

QVersionNumber numbers(const QString& version)
{
    return QVersionNumber::fromString(upstream(version)).normalized();
}

} // namespace

std::optional<QString> PackageVersion::newest(const QStringList& versions, const QString& running)
{
    QVersionNumber highest = numbers(running);
    std::optional<QString> newest;
    for (const QString& version : versions)
        if (const auto here = numbers(version); here > highest) {
            highest = here;
            newest = upstream(version);
        }
    return newest;
}

} // namespace Kovrel
