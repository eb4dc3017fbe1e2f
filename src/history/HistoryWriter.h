#pragma once

#include "history/files/HistoryIndexFile.h"
#include "platform/Scope.h"

namespace Kovrel {

// Brings the history's records to the disk, in the background: while one write runs, all later changes wait and make
// one. Main thread.
class HistoryWriter {
public:
    using Written = std::expected<void, QString>; // the reason is one line for people

    // `state` is what is to be written, and asked when a write begins. `merge` hears of what other programs have done:
    // what was written here, and what is on the disk now.
    HistoryWriter(MainLoop& loop, Workers& workers, const HistoryFiles& files, std::function<HistoryState()> state,
                  std::function<void(const HistoryState& written, const HistoryState& now)> merge);

    // Reads what is there. Before that nothing is written.
    void load(Reply<HistoryIndexFile::Outcome> reply);

    void write();
    // Whether the disk has what holds now.
    void write(Reply<Written> written);
    // Files of captures that are in no record any more go once the records on the disk say so.
    void deleteFiles(const QSet<QUuid>& ids);

    bool isWriting() const { return m_isWriting; }

    // Writes without the main thread.
    void writeLast();

private:
    QCoro::Task<> read(Reply<HistoryIndexFile::Outcome> reply);
    QCoro::Task<> writeChanges();
    QCoro::Task<HistoryIndexFile::Outcome> onDisk(std::function<HistoryIndexFile::Outcome()> job);
    void start();
    void take(const HistoryState& written, const HistoryIndexFile::Outcome& outcome, const QSet<QUuid>& deleted);

    MainLoop& m_loop;
    Workers& m_workers;
    std::shared_ptr<HistoryIndexFile> m_file;
    std::function<HistoryState()> m_state;
    std::function<void(const HistoryState&, const HistoryState&)> m_merge;
    HistoryState m_base;                    // what the disk had when we looked last
    std::optional<HistoryState> m_underWay; // what is being written
    QSet<QUuid> m_deleted;
    std::vector<Reply<Written>> m_waiters;
    bool m_isLoaded = false;
    bool m_isChanged = false;
    bool m_isWriting = false;
    Scope m_scope;
};

} // namespace Kovrel
