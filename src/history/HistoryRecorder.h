#pragma once

#include "history/HistoryRecords.h"
#include "history/HistoryThumbnails.h"
#include "history/PendingWrites.h"
#include "ports/CaptureHistory.h"

#include <map>

namespace Kovrel {

// Records captures: their picture, then their entry. Main thread.
class HistoryRecorder {
public:
    // A capture that could not be recorded and that nothing else holds.
    using Rescue = std::function<void(CaptureResult, std::shared_ptr<EncodedPng>, QString reason)>;

    HistoryRecorder(MainLoop& loop, Workers& workers, HistoryFiles files, HistoryRecords& records,
                    HistoryThumbnails& thumbnails, PendingWrites& writes, std::function<void()> landed, Rescue rescue);

    // `save` and `png` may be null. It is done once the entry is on the disk. One that is recorded, or about to be, is
    // not recorded again.
    std::shared_ptr<CaptureRecording> record(CaptureResult result, std::shared_ptr<CaptureSave> save,
                                             std::shared_ptr<EncodedPng> png);

    bool isPending(QUuid id) const { return m_pending.contains(id); }

    // A capture is about to be taken, or no more: what is to be recorded meanwhile waits for a moment.
    void makeRoom(bool isNeeded) { m_isRoomNeeded = isNeeded; }

    // Without the main thread: the pictures are given to the lane, and the entries take their place.
    void landAll();

private:
    // What is to be recorded.
    struct Pending {
        HistoryEntry entry;
        std::shared_ptr<EncodedPng> png;
        std::shared_ptr<CaptureRecording> recording;
        bool isWriting = false; // the picture is with the lane
        bool isInserted = false;
    };

    using Job = std::function<HistoryWriter::Written()>;

    QCoro::Task<> perform(CaptureResult result, std::shared_ptr<CaptureSave> save);
    void finish(CaptureResult result, const std::shared_ptr<CaptureSave>& save, const HistoryWriter::Written& written);
    QCoro::Task<> waitForQuiet(std::shared_ptr<CaptureSave> save);
    QCoro::Task<HistoryWriter::Written> writePicture(QUuid id);
    Job pictureJob(QUuid id);
    void insert(QUuid id);
    void noteSave(QUuid id, const std::shared_ptr<CaptureSave>& save);

    MainLoop& m_loop;
    Workers& m_workers;
    HistoryFiles m_files;
    HistoryRecords& m_records;
    HistoryThumbnails& m_thumbnails;
    PendingWrites& m_writes;
    std::function<void()> m_landed;
    Rescue m_rescue;
    std::map<QUuid, Pending> m_pending;
    bool m_isRoomNeeded = false;
    Lifeline m_lifeline;
    Scope m_scope;
};

} // namespace Kovrel
