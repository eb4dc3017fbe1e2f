#pragma once

#include "platform/PackageManager.h"

#include <chrono>

namespace Kovrel {

// Whatever package manager answers as PackageKit on the system bus. It is started by the question where it is
// installed.
class PackageKitPackages : public PackageManager {
public:
    explicit PackageKitPackages(std::chrono::milliseconds patience) : m_patience(patience) {}

    std::expected<QStringList, QString> versions(const QString& package, std::stop_token stop) const override;

private:
    std::chrono::milliseconds m_patience;
};

} // namespace Kovrel
