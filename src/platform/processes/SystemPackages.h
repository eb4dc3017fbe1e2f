#pragma once

#include "platform/processes/AptPackages.h"
#include "platform/processes/PackageKitPackages.h"

namespace Kovrel {

// The package manager that this system has: PackageKit, and where that gives no answer, apt.
class SystemPackages : public PackageManager {
public:
    // Of each of them.
    explicit SystemPackages(std::chrono::milliseconds patience) : m_packageKit(patience), m_apt(patience) {}

    std::expected<QStringList, QString> versions(const QString& package, std::stop_token stop) const override
    {
        const auto known = m_packageKit.versions(package, stop);
        return known || stop.stop_requested() || !AptPackages::isThere() ? known : m_apt.versions(package, stop);
    }

private:
    PackageKitPackages m_packageKit;
    AptPackages m_apt;
};

} // namespace Kovrel
