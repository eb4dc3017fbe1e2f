#pragma once

#include "editor/json/AnnotationJson.h"
#include "history/HistoryEditor.h"
#include "history/HistoryIndexing.h"
#include "history/HistoryPictures.h"
#include "history/HistoryRecorder.h"
#include "history/HistoryTrash.h"
#include "model/HistoryEntry.h"
#include "model/HistoryList.h"
#include "platform/Observers.h"
#include "ports/CaptureHistory.h"
#include "preferences/Preferences.h"
#include "recognition/CaptureOCRStore.h"

#include <QList>
#include <QSet>

#include <functional>
#include <stop_token>

namespace Kovrel {

// Every recent capture, on disk: one record for each, its picture files beside it, and the lists into which the user
// files captures. A capture belongs to at most one list. Everything stays on this computer.
//
// Main thread. What is asked and changed here is what is in memory; files are read and written on lanes of their own,
// and every Reply comes later. Pictures have device pixels and device pixel ratio 1. A change is in memory at once and
// on disk soon; what the disk does not take now is written with the next change.
class CaptureHistoryStore : public CaptureHistory {
public:
    // Keeps a capture elsewhere that could not be recorded and that nothing else holds, and tells it.
    using Rescue = HistoryRecorder::Rescue;

    struct Services {
        MainLoop& loop;
        Workers& workers;
        Preferences& preferences;
        CaptureOCRStore& ocr;
        QString folder; // absolute; made when something is written first
        Rescue rescue = {};
    };

    // For how long a removal can be taken back.
    static constexpr std::chrono::seconds undoTime{10};

    explicit CaptureHistoryStore(Services services);
    ~CaptureHistoryStore() override;

    // Reads what is there. Until that is done there are no entries but those recorded meanwhile.
    void start();
    // The same for a process that only looks: nothing is written, swept or put aside, and nothing can be changed.
    void startReadOnly();
    bool isLoaded() const;
    // Called at once when it is loaded already.
    void whenLoaded(std::function<void()> callback);

    // Words follow captures there, from now on. It outlives this.
    void attach(HistoryIndexing& indexing);

    // --- What there is

    const QList<HistoryEntry>& entries() const;    // newest first
    const std::vector<HistoryList>& lists() const; // in the user's order

    // After entries or lists have changed; changes of one moment are told together.
    Subscription onChange(std::function<void()> observer);
    Subscription onForget(std::function<void(QUuid)> observer) override;
    // Its thumbnail is another one.
    Subscription onPictureChange(std::function<void(QUuid)> observer) override;

    // Null for none. Valid until the next change.
    const HistoryEntry* entry(QUuid id) const;
    const HistoryList* list(QUuid id) const;

    std::vector<HistoryEntry> timelineEntries() const;
    std::vector<HistoryEntry> entriesIn(QUuid list) const; // in the list's order
    bool isListed(QUuid id) const;
    QSet<QUuid> listedIDs() const;

    // Whether the capture has its files, or is about to.
    CaptureOCRStore::Status status(QUuid id) const;

    // --- Entries

    bool isRecording() const override;
    std::shared_ptr<CaptureRecording> record(CaptureResult result, std::shared_ptr<CaptureSave> save,
                                             std::shared_ptr<EncodedPng> png) override;
    void setTitle(QUuid id, std::optional<QString> title);
    void setSavedPath(QUuid id, std::optional<QString> path) override;
    // Once `done` is told without a reason for failure, the picture is on disk.
    void updateImage(HistoryEdit edit, Reply<std::expected<void, QString>> done = {});
    void rotate(QUuid id, QuarterTurn turn, Reply<bool> done) override;

    // --- Removal

    // They leave entries and lists at once. Their files go when `undoTime` is over, with the next removal, or when the
    // program ends.
    void remove(const QSet<QUuid>& ids);
    // The same, but those that are in a list only leave the timeline.
    void deleteKeepingFiled(const QSet<QUuid>& ids);
    bool canUndoRemoval() const;
    void undoRemoval();
    void restoreToTimeline(const QSet<QUuid>& ids);

    // At once and for good: those that are neither saved nor in a list, those that are in no list, one.
    void clearUnsaved();
    void clearUnfiled();
    void discard(QUuid id);
    int unsavedCount() const;           // how many clearUnsaved would take
    int surplusOf(int retention) const; // how many such a setting would take

    // --- Lists

    // The new list's identity.
    QUuid createList(const QString& name, const QString& colorHex);
    QString defaultName() const;
    QString nextColor() const;
    void renameList(QUuid list, const QString& name);
    void setListColor(QUuid list, const QString& colorHex);
    void deleteList(QUuid list);
    void moveList(QUuid list, int position); // position among the others
    // At the end of the list, in this order; they leave any other list.
    void moveToList(const std::vector<QUuid>& ids, QUuid list);
    void removeFromList(QUuid list, const QSet<QUuid>& ids);

    // --- Pictures. Answers that have nothing are null images, empty paths and no value; writes under way are awaited.

    void fullImage(QUuid id, Reply<QImage> reply); // as it looks, edited
    void baseImage(QUuid id, Reply<QImage> reply); // as it was captured
    void annotations(QUuid id, Reply<std::optional<std::vector<Annotation>>> reply);
    void backdrop(QUuid id, Reply<std::optional<EditorBackdrop>> reply);
    // At most 720 pixels on the longer side. `stop`: nobody wants it any more; the answer is then null, and quick.
    void thumbnail(QUuid id, std::stop_token stop, Reply<QImage> reply);
    // The thumbnail, if it is in memory.
    QImage cachedThumbnail(QUuid id) const;
    // The file with the capture as it looks.
    void fullImageURL(QUuid id, Reply<QString> reply);
    QString baseImageURL(QUuid id) const;

    CaptureOCRStore& ocr() const;

    // --- CaptureHistory

    void suspendIndexing() override;
    void scheduleIdleIndex() override;
    void setReading(QUuid id, OCRResult text, std::vector<QRCode> codes) override;
    void load(QUuid id, Reply<std::optional<Reopened>> reply) override;

    // --- Waiting

    // Once a capture's files have landed.
    void settle(QUuid id, std::function<void()> callback);
    // Once everything has.
    void whenSettled(std::function<void()> callback);
    // Some time after the start: what older programs did not note.
    void backfillPixelSizes();
    // The last moment: hands to the lanes what is not written yet; they finish it without the main thread.
    void prepareToEnd();

private:
    QCoro::Task<> look();
    void loaded();
    void sweep();
    QCoro::Task<> sweepInBackground();
    void captureLanded();
    void looksDifferent(QUuid id);
    void removeForGood(bool (*isMeant)(const HistoryEntry&));
    void removeAtOnce(const QSet<QUuid>& ids);
    void prune();
    void letGo(const QSet<QUuid>& ids);
    void forget(const QSet<QUuid>& ids);
    void settingChanged(const QString& key);
    void changeList(QUuid list, const std::function<void(HistoryList&)>& change);
    void leaveLists(const QSet<QUuid>& ids);
    QCoro::Task<> keepReading(QUuid id, OCRResult text, std::vector<QRCode> codes);
    QCoro::Task<> rotateInBackground(QUuid id, QuarterTurn turn, Reply<bool> done);
    QCoro::Task<> reopen(QUuid id, Reply<std::optional<Reopened>> reply);
    QCoro::Task<> waitForAll(std::function<void()> callback);
    QCoro::Task<> backfillInBackground();

    struct Telling {
        Observers<QUuid> forgotten;
        Observers<QUuid> pictureChanged;
    };

    Services m_services;
    HistoryFiles m_files;
    HistoryIndexing* m_indexing = nullptr;
    Telling m_telling;
    Ongoing<Nothing> m_loading;
    MainLoop::TimerID m_sweepTimer = 0;
    bool m_isBackfilled = false;
    PendingWrites m_writes; // before those who write
    HistoryRecords m_records;
    HistoryThumbnails m_thumbnails;
    HistoryRecorder m_recorder;
    HistoryEditor m_editor;
    HistoryPictures m_pictures;
    HistoryTrash m_trash;
    Subscription m_settings;
    Scope m_scope;
};

} // namespace Kovrel
