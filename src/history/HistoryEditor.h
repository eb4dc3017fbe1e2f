#pragma once

#include "history/HistoryEdit.h"
#include "history/HistoryRecords.h"
#include "history/HistoryThumbnails.h"
#include "history/PendingWrites.h"
#include "recognition/CaptureOCRStore.h"

#include <memory>
#include <vector>

namespace Kovrel {

// Stores what the editor has made of captures: marks, backdrop, picture, thumbnail, then the entry. Main thread.
class HistoryEditor {
public:
    using Done = HistoryWriter::Written;

    // `changed`: a capture looks different now.
    HistoryEditor(MainLoop& loop, Workers& workers, HistoryFiles files, HistoryRecords& records,
                  HistoryThumbnails& thumbnails, PendingWrites& writes, CaptureOCRStore& ocr,
                  std::function<void(QUuid)> changed);

    // An edit waits until what is being written of its capture has landed.
    void update(HistoryEdit edit, Reply<Done> done);

    // An edit is about to come, for as long as the answer lives.
    [[nodiscard]] auto expect(QUuid id) { return m_edits.begin(id); }

    // Once no edit is expected, waits or is being stored.
    void whenAllStored(std::function<void()> callback) { m_edits.whenAllSettled(std::move(callback)); }

    // Without the main thread, behind the recordings: the files are given to the lane, and the entries changed.
    void landAll();

private:
    // What is to be stored.
    struct Pending {
        HistoryEdit edit;
        std::optional<QString> savedPathBefore = {};
        bool isWriting = false; // the files are with the lane
        bool isApplied = false; // the entry has it
    };

    using Job = std::function<Done()>;

    QCoro::Task<> updateInBackground(std::shared_ptr<Pending> pending, Reply<Done> done);
    QCoro::Task<Done> store(std::shared_ptr<Pending> pending);
    Job filesJob(Pending& pending) const;
    void land(Pending& pending);
    void apply(Pending& pending);

    Workers& m_workers;
    HistoryFiles m_files;
    HistoryRecords& m_records;
    HistoryThumbnails& m_thumbnails;
    PendingWrites& m_writes;
    CaptureOCRStore& m_ocr;
    std::function<void(QUuid)> m_changed;
    std::vector<std::shared_ptr<Pending>> m_pending; // in the order in which they came
    PendingWrites m_edits;
    Scope m_scope;
};

} // namespace Kovrel
