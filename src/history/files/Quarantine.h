#pragma once

#include "history/files/HistoryFiles.h"

namespace Kovrel {

// Copies of indexes that could not be read wholly: "index-unreadable-SECONDS.json", so that nothing is lost without a
// trace. Not on the main thread.
class Quarantine {
public:
    explicit Quarantine(const HistoryFiles& files) : m_files(files) {}

    enum class Original { stays, moves };

    // Puts a file of the history aside. False when that failed: it must not be replaced then.
    bool take(const QString& path, Original original) const;
    // Whether an index is among these names.
    static bool isAmong(const QStringList& names);
    // Takes what is there of these captures out of all copies; a copy in which no records can be told apart goes
    // with them.
    void forget(const QSet<QUuid>& ids) const;

private:
    QStringList copies() const;

    const HistoryFiles& m_files;
};

} // namespace Kovrel
