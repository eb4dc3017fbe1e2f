#pragma once

#include "ports/ReopenLedger.h"

#include <deque>
#include <utility>

namespace Kovrel {

// The cards that were closed since the program started, the newest ones. Main thread.
class ClosedCards : public ReopenLedger {
public:
    static constexpr size_t most = 100;

    void rememberSavedFile(QUuid id, const QString& path) override;
    void rememberClosed(QUuid id) override;
    void forgetClosed(QUuid id) override;
    std::optional<QUuid> takeLastClosed() override;

    bool isEmpty() const { return m_closed.empty(); }

    std::optional<QString> savedFile(QUuid id) const override;

private:
    std::deque<QUuid> m_closed; // the last one closed last
    std::deque<std::pair<QUuid, QString>> m_saved;
};

} // namespace Kovrel
