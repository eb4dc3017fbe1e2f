#include "history/HistoryRecords.h"

#include "history/records/HistoryMerge.h"

#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.history")

} // namespace

HistoryRecords::HistoryRecords(MainLoop& loop, Workers& workers, const HistoryFiles& files,
                               std::function<void(const QSet<QUuid>&)> lost)
    : m_loop(loop),
      m_lost(std::move(lost)),
      m_writer(
          loop, workers, files, [this] { return m_state; },
          [this](const HistoryState& written, const HistoryState& now) { merge(written, now); })
{
}

const HistoryEntry* HistoryRecords::entry(QUuid id) const
{
    if (m_positions.isEmpty())
        for (qsizetype position = 0; position < m_state.entries.size(); ++position)
            m_positions.insert(m_state.entries[position].id, position);
    const auto found = m_positions.constFind(id);
    return found == m_positions.cend() ? nullptr : &m_state.entries[*found];
}

// What was recorded meanwhile stays.
void HistoryRecords::load(std::function<void()> loaded)
{
    m_writer.load(m_lifeline.guard([this, loaded = std::move(loaded)](const HistoryIndexFile::Outcome& outcome) {
        if (outcome)
            merge({}, *outcome);
        else
            qCWarning(log, "The history was not read: %s", qUtf8Printable(outcome.error()));
        loaded();
    }));
}

void HistoryRecords::show(HistoryState state)
{
    m_state = std::move(state);
    announce();
}

void HistoryRecords::change(const std::function<void(HistoryState&)>& change)
{
    change(m_state);
    announce();
    m_writer.write();
}

void HistoryRecords::changeEntry(QUuid id, const std::function<void(HistoryEntry&)>& change)
{
    if (!entry(id))
        return;
    change(m_state.entries[m_positions.value(id)]);
    announce();
    m_writer.write();
}

void HistoryRecords::merge(const HistoryState& base, const HistoryState& theirs)
{
    const QSet<QUuid> before = m_state.ids();
    m_state = HistoryMerge::merged(base, m_state, theirs);
    m_lost(before - m_state.ids());
    announce();
}

void HistoryRecords::announce()
{
    m_positions.clear();
    if (std::exchange(m_isAnnouncing, true))
        return;
    m_loop.post(m_lifeline.guard([this] {
        m_isAnnouncing = false;
        m_observers.notify();
    }));
}

} // namespace Kovrel
