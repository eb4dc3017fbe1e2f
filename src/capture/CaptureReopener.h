#pragma once

#include "capture/CaptureServices.h"
#include "platform/Scope.h"
#include "ports/CaptureHistory.h"

#include <QUuid>

#include <set>

namespace Kovrel {

// Brings an earlier capture back as a card. Main thread.
class CaptureReopener {
public:
    explicit CaptureReopener(CaptureServices& services);

    // The capture whose card was closed last. The reply says whether a card came.
    void reopenClosed(std::function<void(bool)> reply);
    // One that is being reopened already does not come twice.
    void presentFromHistory(QUuid id, std::function<void(bool)> reply);

private:
    using Loaded = std::optional<CaptureHistory::Reopened>;

    QCoro::Task<> reopen(QUuid id, std::function<void(bool)> reply);
    QCoro::Task<Loaded> find(QUuid id);

    CaptureServices& m_services;
    std::set<QUuid> m_reopensInFlight;
    Scope m_scope;
};

} // namespace Kovrel
