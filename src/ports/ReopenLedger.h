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
    virtual std::optional<QString> savedFile(QUuid id) const = 0;
    virtual void rememberClosed(QUuid id) = 0;
    // It is there again, or can't come back any more.
    virtual void forgetClosed(QUuid id) = 0;
    // The capture that was closed last and has not come back since.
    virtual std::optional<QUuid> takeLastClosed() = 0;
};

} // namespace Kovrel
