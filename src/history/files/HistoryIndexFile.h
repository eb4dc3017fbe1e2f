#pragma once

#include "history/files/HistoryFiles.h"
#include "history/records/HistoryState.h"

#include <expected>
#include <tuple>

namespace Kovrel {

// The index of the history and its lists on disk, which another program may change, too: each change is made under a
// lock, on top of what is there. Not on the main thread, one call at a time; errors are one line for people.
class HistoryIndexFile {
public:
    explicit HistoryIndexFile(HistoryFiles files) : m_files(std::move(files)) {}

    using Outcome = std::expected<HistoryState, QString>;

    // What is there: records that have their picture, each once, newest first. What can't be read is put aside.
    Outcome load();
    // The same without changing anything.
    static Outcome peek(const HistoryFiles& files);

    // Puts `ours` on the disk, which was made of `base`, with what other programs have done since; the answer is what
    // is there now. Then the files of captures that were deleted go, or before, where the disk has no room. Where it
    // fails, the old records are still there.
    Outcome write(const HistoryState& base, const HistoryState& ours, const QSet<QUuid>& deleted);

private:
    // Tells a file that somebody else has replaced. A file that is not there has the default one, and none is that of
    // a file that must be written anew.
    using Stamp = std::tuple<quint64, qint64, qint64, qint64>; // inode, size, seconds, nanoseconds

    struct Stamps {
        std::optional<Stamp> index = Stamp();
        std::optional<Stamp> lists = Stamp();
        bool operator==(const Stamps&) const = default;
    };

    static Stamp stampOf(const QString& path);
    Stamps stamps() const;
    // Reads the disk; what is missing there is as in `base`.
    Outcome theirs(const HistoryState& base);
    std::expected<void, QString> putOrMakeRoom(const HistoryState& state, const HistoryState& ours,
                                               const QSet<QUuid>& deleted);
    std::expected<void, QString> put(const HistoryState& state, const HistoryState& ours);
    std::expected<void, QString> putLists(const HistoryState& state);
    std::expected<void, QString> putEntries(const HistoryState& state);
    void forgetFiles(const QSet<QUuid>& deleted) const;

    HistoryFiles m_files;
    HistoryState m_disk; // what the files with these stamps hold
    Stamps m_stamps;
    // Our lists that are on the disk already, where their index could not follow: what comes next is made of them.
    std::optional<std::vector<HistoryList>> m_listsAhead;
};

} // namespace Kovrel
