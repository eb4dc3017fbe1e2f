#pragma once

#include <QStringList>

#include <expected>
#include <stop_token>

namespace Kovrel {

// The system's package manager, which is asked and never told to change anything. Calls take seconds: one worker at a
// time.
class PackageManager {
public:
    virtual ~PackageManager() = default;

    // The versions of a package that it has or could install, as it writes them; none where it does not know the
    // package. The failure, also of one that does not answer in time, is one line for the log.
    virtual std::expected<QStringList, QString> versions(const QString& package, std::stop_token stop) const = 0;
};

} // namespace Kovrel
