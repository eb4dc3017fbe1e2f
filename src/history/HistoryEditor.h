#pragma once

#include "history/HistoryEdit.h"
#include "history/HistoryRecords.h"
#include "history/HistoryThumbnails.h"
#include "history/PendingWrites.h"
#include "recognition/CaptureOCRStore.h"

namespace Kovrel {

// Stores what the editor has made of captures: marks, backdrop, picture, thumbnail, then the entry. Main thread.
class HistoryEditor {
public:
    using Done = HistoryWriter::Written;

    // `changed`: a capture looks different now.
    HistoryEditor(MainLoop& loop, Workers& workers, HistoryFiles files, HistoryRecords& records,
                  HistoryThumbnails& thumbnails, PendingWrites& writes, CaptureOCRStore& ocr,
                  std::function<void(QUuid)> changed);

    void update(HistoryEdit edit, Reply<Done> done);

private:
    QCoro::Task<> updateInBackground(HistoryEdit edit, Reply<Done> done);
    QCoro::Task<Done> store(HistoryEdit edit);
    void apply(const HistoryEdit& edit, const std::optional<QString>& savedPathBefore);

    HistoryFiles m_files;
    HistoryRecords& m_records;
    HistoryThumbnails& m_thumbnails;
    PendingWrites& m_writes;
    CaptureOCRStore& m_ocr;
    std::function<void(QUuid)> m_changed;
    Scope m_scope;
};

} // namespace Kovrel
