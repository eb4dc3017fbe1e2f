#pragma once

#include <QString>
#include <QUuid>

#include <optional>

namespace Kovrel {

// Remembers which captures were closed, so that the last one can come back. Main thread.
class ReopenLedger {
public:
    virtual ~ReopenLedger() = default;

    virtual void rememberSavedFile(QUuid id, const QString& path) = 0;
    // The capture that was closed last and has not come back since.
    virtual std::optional<QUuid> takeLastClosed() = 0;
};

} // namespace Kovrel
