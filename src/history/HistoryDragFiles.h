#pragma once

#include "history/CaptureHistoryStore.h"
#include "ports/CaptureFiles.h"
#include "saving/DragFiles.h"

namespace Kovrel {

// The files that are handed out when captures of the history are dragged into other programs: one for each capture,
// under the name that people read, kept for the next drag and gone with the capture. Main thread.
class HistoryDragFiles : public CaptureFiles {
public:
    // `temporaryFolder` is the user's own.
    HistoryDragFiles(MainLoop& loop, Workers& workers, Preferences& preferences, CaptureHistoryStore& store,
                     const QString& temporaryFolder);

    void file(QUuid id, Reply<std::optional<QString>> reply) override;

private:
    QCoro::Task<> link(QUuid id, Reply<std::optional<QString>> reply);
    void forget(QUuid id);

    Workers& m_workers;
    Preferences& m_preferences;
    CaptureHistoryStore& m_store;
    DragFiles m_dragFiles;
    QHash<QUuid, QString> m_files;
    Subscription m_forgotten;
    Subscription m_changed;
    Scope m_scope;
};

} // namespace Kovrel
