#pragma once

#include "platform/MainLoop.h"

#include <QHash>
#include <QScopeGuard>
#include <QUuid>

#include <functional>
#include <vector>

namespace Kovrel {

// Which captures' files are being written, for those who must see them. Main thread.
class PendingWrites {
public:
    explicit PendingWrites(MainLoop& loop) : m_loop(loop) {}

    // One is under way for as long as the answer lives.
    [[nodiscard]] auto begin(QUuid id)
    {
        ++m_counts[id];
        return qScopeGuard([this, id] { end(id); });
    }

    bool contains(QUuid id) const { return m_counts.contains(id); }

    // Called at once where nothing is under way.
    void whenSettled(QUuid id, std::function<void()> callback);
    void whenAllSettled(std::function<void()> callback);

private:
    struct Waiter {
        std::function<bool()> isOver;
        std::function<void()> callback;
    };

    void end(QUuid id);
    void wait(Waiter waiter);

    MainLoop& m_loop;
    QHash<QUuid, int> m_counts;
    std::vector<Waiter> m_waiters;
};

} // namespace Kovrel
