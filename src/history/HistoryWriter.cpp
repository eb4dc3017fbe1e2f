#include "history/HistoryWriter.h"

#include "platform/Guarded.h"

#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.history")

using Outcome = HistoryIndexFile::Outcome;

} // namespace

HistoryWriter::HistoryWriter(MainLoop& loop, Workers& workers, const HistoryFiles& files,
                             std::function<HistoryState()> state,
                             std::function<void(const HistoryState&, const HistoryState&)> merge)
    : m_loop(loop),
      m_workers(workers),
      m_file(std::make_shared<HistoryIndexFile>(files)),
      m_state(std::move(state)),
      m_merge(std::move(merge)),
      m_scope(loop, workers)
{
}

void HistoryWriter::load(Reply<Outcome> reply)
{
    Scope::start(read(std::move(reply)), "reading the history");
}

QCoro::Task<> HistoryWriter::read(Reply<Outcome> reply)
{
    const Outcome outcome = co_await onDisk([file = m_file] { return file->load(); });
    if (outcome)
        m_base = *outcome;
    m_isLoaded = true;
    reply(outcome);
    start();
}

void HistoryWriter::write()
{
    m_isChanged = true;
    start();
}

void HistoryWriter::write(Reply<Written> written)
{
    m_waiters.push_back(std::move(written));
    write();
}

void HistoryWriter::deleteFiles(const QSet<QUuid>& ids)
{
    m_deleted += ids;
    write();
}

void HistoryWriter::start()
{
    if (m_isChanged && m_isLoaded && !m_isWriting)
        Scope::start(writeChanges(), "writing the history");
}

// What the disk did not take waits for the next change; but whoever waits is told.
QCoro::Task<> HistoryWriter::writeChanges()
{
    m_isWriting = true;
    co_await m_scope.reply<Nothing>([this](auto done) { m_loop.post([done] { done({}); }); });
    bool isDone = false;
    while (!isDone || !m_waiters.empty()) {
        m_isChanged = false;
        const auto waiters = std::exchange(m_waiters, {});
        const QSet<QUuid> deleted = std::exchange(m_deleted, {});
        const HistoryState state = m_state();
        m_underWay = state;
        const auto job = [file = m_file, base = m_base, state, deleted] { return file->write(base, state, deleted); };
        const Outcome outcome = co_await onDisk(job);
        m_underWay.reset();
        take(state, outcome, deleted);
        for (const auto& waiter : waiters)
            waiter(outcome ? Written() : std::unexpected(outcome.error()));
        isDone = !outcome || !m_isChanged;
    }
    m_isWriting = false;
}

QCoro::Task<Outcome> HistoryWriter::onDisk(std::function<Outcome()> job)
{
    Outcome outcome;
    try {
        outcome =
            co_await m_scope.onWorker(Lane::history, QualityOfService::utility, Guarded::orReason(std::move(job)));
    } catch (const std::exception&) { // no thread could be had
        outcome = std::unexpected(Guarded::reason());
    }
    co_return outcome;
}

void HistoryWriter::take(const HistoryState& written, const Outcome& outcome, const QSet<QUuid>& deleted)
{
    if (!outcome) {
        qCWarning(log, "The history was not written: %s", qUtf8Printable(outcome.error()));
        m_deleted += deleted;
        m_isChanged = true;
        return;
    }
    m_base = *outcome;
    if (*outcome != written)
        m_merge(written, *outcome);
}

// What is being written is what later changes were made of; where that went wrong, it is done first.
void HistoryWriter::writeLast()
{
    const auto job = [file = m_file, base = m_base, underWay = m_underWay, state = m_state(), deleted = m_deleted] {
        if (const Outcome before = underWay ? file->write(base, *underWay, {}) : base; !before)
            return before;
        return file->write(underWay.value_or(base), state, deleted);
    };
    m_workers.submit(Lane::history, QualityOfService::utility, [job] {
        if (const Outcome outcome = Guarded::orReason(job)(); !outcome)
            qCWarning(log, "The history was not written: %s", qUtf8Printable(outcome.error()));
    });
}

} // namespace Kovrel
