#pragma once

#include "platform/PackageManager.h"

#include <QStringList>

namespace Kovrel::Testing {

class FakePackageManager : public PackageManager {
public:
    std::expected<QStringList, QString> known;
    mutable QStringList asked; // for these packages
    mutable std::stop_token stop;

    std::expected<QStringList, QString> versions(const QString& package, std::stop_token token) const override
    {
        asked << package;
        stop = std::move(token);
        return known;
    }
};

} // namespace Kovrel::Testing
