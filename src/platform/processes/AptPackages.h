#pragma once

#include "platform/PackageManager.h"

#include <chrono>

namespace Kovrel {

// The package manager of Debian and its kin, by its program for questions.
class AptPackages : public PackageManager {
public:
    explicit AptPackages(std::chrono::milliseconds patience) : m_patience(patience) {}

    static bool isThere();

    std::expected<QStringList, QString> versions(const QString& package, std::stop_token stop) const override;

private:
    std::chrono::milliseconds m_patience;
};

} // namespace Kovrel
