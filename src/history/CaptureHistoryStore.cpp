#include "history/CaptureHistoryStore.h"

#include "history/HistoryTurn.h"
#include "history/files/OrphanSweep.h"
#include "history/records/HistoryLists.h"
#include "history/records/Retention.h"
#include "platform/Guarded.h"

namespace Kovrel {

CaptureHistoryStore::CaptureHistoryStore(Services services)
    : m_services(std::move(services)),
      m_files(m_services.folder),
      m_writes(m_services.loop),
      m_records(m_services.loop, m_services.workers, m_files, [this](const QSet<QUuid>& ids) { letGo(ids); }),
      m_thumbnails(m_services.loop, m_services.workers, m_files, m_records, m_writes),
      m_recorder(
          m_services.loop, m_services.workers, m_files, m_records, m_thumbnails, m_writes, [this] { captureLanded(); },
          m_services.rescue),
      m_editor(m_services.loop, m_services.workers, m_files, m_records, m_thumbnails, m_writes, m_services.ocr,
               [this](QUuid id) { looksDifferent(id); }),
      m_pictures(m_services.loop, m_services.workers, m_files, m_writes),
      m_trash(m_services.loop, m_records, undoTime, [this](const QSet<QUuid>& ids) { forget(ids); }),
      m_settings(m_services.preferences.defaults().onChange([this](const QString& key) { settingChanged(key); })),
      m_scope(m_services.loop, m_services.workers)
{
}

CaptureHistoryStore::~CaptureHistoryStore()
{
    m_services.loop.cancel(m_sweepTimer);
}

// --- Loading

void CaptureHistoryStore::start()
{
    m_records.load([this] { loaded(); });
}

void CaptureHistoryStore::startReadOnly()
{
    Scope::start(look(), "reading the history");
}

QCoro::Task<> CaptureHistoryStore::look()
{
    HistoryIndexFile::Outcome found = co_await m_scope.onWorker(
        Lane::history, Guarded::orReason([files = m_files] { return HistoryIndexFile::peek(files); }));
    m_records.show(std::move(found).value_or(HistoryState()));
    m_loading.finish({});
}

void CaptureHistoryStore::loaded()
{
    if (!isRecording())
        removeForGood([](const HistoryEntry&) { return true; });
    prune();
    if (m_indexing)
        m_indexing->retain(m_records.state().ids());
    m_loading.finish({});
    sweep();
}

void CaptureHistoryStore::sweep()
{
    Scope::start(sweepInBackground(), "sweeping the history");
}

// What is too young to be taken for an orphan is looked at once more. Another program may have recorded meanwhile, and
// a removal may still be taken back.
QCoro::Task<> CaptureHistoryStore::sweepInBackground()
{
    const auto job = [files = m_files, ours = m_records.state().ids() + m_trash.ids()] {
        const HistoryIndexFile::Outcome there = HistoryIndexFile::peek(files);
        return there && OrphanSweep::run(files, ours + there->ids());
    };
    const bool hasYounger =
        co_await m_scope.onWorker(Lane::history, QualityOfService::background, Guarded::orElse(job, false));
    if (hasYounger)
        m_sweepTimer = m_services.loop.after(OrphanSweep::age + std::chrono::seconds(1), [this] { sweep(); });
}

bool CaptureHistoryStore::isLoaded() const
{
    return m_loading.isDone();
}

void CaptureHistoryStore::whenLoaded(std::function<void()> callback)
{
    m_loading.whenDone([callback = std::move(callback)](Nothing) { callback(); });
}

void CaptureHistoryStore::attach(HistoryIndexing& indexing)
{
    m_indexing = &indexing;
}

// --- What there is

const QList<HistoryEntry>& CaptureHistoryStore::entries() const
{
    return m_records.state().entries;
}

const std::vector<HistoryList>& CaptureHistoryStore::lists() const
{
    return m_records.state().lists;
}

Subscription CaptureHistoryStore::onChange(std::function<void()> observer)
{
    return m_records.onChange(std::move(observer));
}

Subscription CaptureHistoryStore::onForget(std::function<void(QUuid)> observer)
{
    return m_telling.forgotten.add(std::move(observer));
}

const HistoryEntry* CaptureHistoryStore::entry(QUuid id) const
{
    return m_records.entry(id);
}

const HistoryList* CaptureHistoryStore::list(QUuid id) const
{
    return HistoryLists::find(lists(), id);
}

std::vector<HistoryEntry> CaptureHistoryStore::timelineEntries() const
{
    std::vector<HistoryEntry> timeline;
    timeline.reserve(size_t(entries().size()));
    std::ranges::copy_if(entries(), std::back_inserter(timeline), &HistoryEntry::isInTimeline);
    return timeline;
}

std::vector<HistoryEntry> CaptureHistoryStore::entriesIn(QUuid list) const
{
    std::vector<HistoryEntry> found;
    if (const HistoryList* wanted = this->list(list))
        for (const QUuid id : wanted->entryIDs)
            if (const HistoryEntry* known = entry(id))
                found.push_back(*known);
    return found;
}

bool CaptureHistoryStore::isListed(QUuid id) const
{
    return std::ranges::any_of(
        lists(), [id](const HistoryList& list) { return std::ranges::find(list.entryIDs, id) != list.entryIDs.end(); });
}

QSet<QUuid> CaptureHistoryStore::listedIDs() const
{
    return HistoryLists::listed(lists());
}

CaptureOCRStore::Status CaptureHistoryStore::status(QUuid id) const
{
    using enum CaptureOCRStore::Status;
    if (entry(id))
        return recorded;
    return m_recorder.isPending(id) ? pending : none;
}

// --- Entries

bool CaptureHistoryStore::isRecording() const
{
    return m_services.preferences.get(Settings::historyEnabled);
}

std::shared_ptr<CaptureRecording> CaptureHistoryStore::record(CaptureResult result, std::shared_ptr<CaptureSave> save,
                                                              std::shared_ptr<EncodedPng> png)
{
    return m_recorder.record(std::move(result), std::move(save), std::move(png));
}

void CaptureHistoryStore::captureLanded()
{
    prune();
    scheduleIdleIndex();
}

void CaptureHistoryStore::setTitle(QUuid id, std::optional<QString> title)
{
    m_records.changeEntry(id, [&](HistoryEntry& entry) { entry.title = std::move(title); });
}

void CaptureHistoryStore::setSavedPath(QUuid id, std::optional<QString> path)
{
    m_records.changeEntry(id, [&](HistoryEntry& entry) { entry.savedPath = std::move(path); });
}

void CaptureHistoryStore::updateImage(HistoryEdit edit, Reply<std::expected<void, QString>> done)
{
    m_editor.update(std::move(edit), std::move(done));
}

void CaptureHistoryStore::rotate(QUuid id, QuarterTurn turn, Reply<bool> done)
{
    Scope::start(rotateInBackground(id, turn, std::move(done)), "turning a capture");
}

// What is being recorded is turned once that has landed.
QCoro::Task<> CaptureHistoryStore::rotateInBackground(QUuid id, QuarterTurn turn, Reply<bool> done)
{
    const auto underWay = m_editor.expect(id);
    co_await m_scope.reply<Nothing>([&](auto landed) { settle(id, [landed] { landed({}); }); });
    HistoryTurn::Capture capture{.entry = {}, .base = {}};
    capture.measureUnit = m_services.preferences.get(Settings::measureUnit);
    capture.base = co_await m_scope.reply<QImage>([&](auto reply) { baseImage(id, reply); });
    const QString full = co_await m_scope.reply<QString>([&](auto reply) { fullImageURL(id, reply); });
    using Marks = std::optional<std::vector<Annotation>>;
    const Marks marks = co_await m_scope.reply<Marks>([&](auto reply) { annotations(id, reply); });
    using Backdrop = std::optional<EditorBackdrop>;
    const Backdrop backdrop = co_await m_scope.reply<Backdrop>([&](auto reply) { this->backdrop(id, reply); });
    const HistoryEntry* found = entry(id);
    // Marks that can't be read may cover what nobody must see.
    const bool hasLostMarks = full != baseImageURL(id) && !marks;
    if (!found || capture.base.isNull() || hasLostMarks) {
        done(false);
        co_return;
    }
    capture.entry = *found;
    capture.annotations = marks.value_or(std::vector<Annotation>());
    capture.backdrop = backdrop.value_or(EditorBackdrop::none);
    const auto job = Guarded::orElse([capture, turn] { return HistoryTurn::edit(capture, turn); }, HistoryEdit());
    HistoryEdit edit = co_await m_scope.onWorker(Lane::editorSave, job);
    if (edit.flattened.isNull())
        done(false);
    else
        updateImage(std::move(edit), [done](const auto& written) { done(written.has_value()); });
}

void CaptureHistoryStore::looksDifferent(QUuid id)
{
    if (m_indexing)
        m_indexing->remove(id);
    m_telling.pictureChanged.notify(id);
    scheduleIdleIndex();
}

Subscription CaptureHistoryStore::onPictureChange(std::function<void(QUuid)> observer)
{
    return m_telling.pictureChanged.add(std::move(observer));
}

// --- Removal

void CaptureHistoryStore::remove(const QSet<QUuid>& ids)
{
    m_trash.take(ids, {});
}

void CaptureHistoryStore::deleteKeepingFiled(const QSet<QUuid>& ids)
{
    const QSet<QUuid> filed = listedIDs() & ids;
    m_trash.take(ids - filed, filed);
}

void CaptureHistoryStore::restoreToTimeline(const QSet<QUuid>& ids)
{
    m_records.change([&ids](HistoryState& state) { state.setListOnly(ids, std::nullopt); });
}

bool CaptureHistoryStore::canUndoRemoval() const
{
    return !m_trash.isEmpty();
}

void CaptureHistoryStore::undoRemoval()
{
    m_trash.restore();
}

int CaptureHistoryStore::unsavedCount() const
{
    const QSet<QUuid> listed = listedIDs();
    return int(std::ranges::count_if(
        entries(), [&](const HistoryEntry& entry) { return !entry.savedPath && !listed.contains(entry.id); }));
}

void CaptureHistoryStore::clearUnsaved()
{
    removeForGood([](const HistoryEntry& entry) { return !entry.savedPath; });
}

void CaptureHistoryStore::clearUnfiled()
{
    removeForGood([](const HistoryEntry&) { return true; });
}

void CaptureHistoryStore::discard(QUuid id)
{
    removeAtOnce({id});
}

// Those that are in no list and of which that is true.
void CaptureHistoryStore::removeForGood(bool (*isMeant)(const HistoryEntry&))
{
    const QSet<QUuid> listed = listedIDs();
    QSet<QUuid> ids;
    for (const HistoryEntry& entry : entries())
        if (!listed.contains(entry.id) && isMeant(entry))
            ids.insert(entry.id);
    removeAtOnce(ids);
}

void CaptureHistoryStore::prune()
{
    const int cap = Retention::cap(m_services.preferences.get(Settings::historyRetentionCount));
    removeAtOnce(Retention::surplus(m_records.state(), cap));
}

int CaptureHistoryStore::surplusOf(int retention) const
{
    return int(Retention::surplus(m_records.state(), Retention::cap(retention)).size());
}

void CaptureHistoryStore::removeAtOnce(const QSet<QUuid>& ids)
{
    if (ids.isEmpty())
        return;
    m_records.change([&](HistoryState& state) { state.remove(ids); });
    forget(ids);
}

// What is made of captures that are in no record any more. Where another program has removed them, their files are its
// own to delete, or to take back.
void CaptureHistoryStore::letGo(const QSet<QUuid>& ids)
{
    for (const QUuid id : ids) {
        m_telling.forgotten.notify(id);
        m_thumbnails.drop(id);
        if (m_indexing)
            m_indexing->remove(id);
    }
}

void CaptureHistoryStore::forget(const QSet<QUuid>& ids)
{
    letGo(ids);
    for (const QUuid id : ids)
        m_services.ocr.forget(id);
    m_records.writer().deleteFiles(ids);
}

void CaptureHistoryStore::settingChanged(const QString& key)
{
    if (!isLoaded())
        return;
    if (key == Settings::historyEnabled.name && !isRecording())
        clearUnsaved();
    if (key == Settings::historyRetentionCount.name)
        prune();
}

// --- Lists

QUuid CaptureHistoryStore::createList(const QString& name, const QString& colorHex)
{
    const HistoryList list{.id = QUuid::createUuid(),
                           .name = name,
                           .colorHex = colorHex,
                           .createdAt = m_services.loop.date(),
                           .entryIDs = {}};
    m_records.change([&list](HistoryState& state) { state.lists.push_back(list); });
    return list.id;
}

QString CaptureHistoryStore::defaultName() const
{
    return HistoryLists::defaultName(lists());
}

QString CaptureHistoryStore::nextColor() const
{
    return HistoryLists::nextColor(lists());
}

void CaptureHistoryStore::changeList(QUuid list, const std::function<void(HistoryList&)>& change)
{
    m_records.change([&](HistoryState& state) {
        if (HistoryList* found = HistoryLists::find(state.lists, list))
            change(*found);
    });
}

void CaptureHistoryStore::renameList(QUuid list, const QString& name)
{
    changeList(list, [&name](HistoryList& found) { found.name = name; });
}

void CaptureHistoryStore::setListColor(QUuid list, const QString& colorHex)
{
    changeList(list, [&colorHex](HistoryList& found) { found.colorHex = colorHex; });
}

void CaptureHistoryStore::deleteList(QUuid list)
{
    if (const HistoryList* found = this->list(list))
        leaveLists(QSet<QUuid>(found->entryIDs.begin(), found->entryIDs.end()));
    m_records.change([list](HistoryState& state) {
        std::erase_if(state.lists, [list](const HistoryList& other) { return other.id == list; });
    });
    prune();
}

void CaptureHistoryStore::moveList(QUuid list, int position)
{
    m_records.change([=](HistoryState& state) { HistoryLists::reorder(state.lists, list, position); });
}

void CaptureHistoryStore::moveToList(const std::vector<QUuid>& ids, QUuid list)
{
    std::vector<QUuid> known = ids;
    std::erase_if(known, [this](QUuid id) { return !entry(id); });
    m_records.change([&](HistoryState& state) { HistoryLists::moveInto(state.lists, known, list); });
}

void CaptureHistoryStore::removeFromList(QUuid list, const QSet<QUuid>& ids)
{
    const HistoryList* found = this->list(list);
    if (!found)
        return;
    leaveLists(ids & QSet<QUuid>(found->entryIDs.begin(), found->entryIDs.end()));
    prune();
}

// A capture that was in the list only would be nowhere: it is in the timeline again.
void CaptureHistoryStore::leaveLists(const QSet<QUuid>& ids)
{
    m_records.change([&ids](HistoryState& state) {
        HistoryLists::drop(state.lists, ids);
        state.setListOnly(ids, std::nullopt);
    });
}

// --- Pictures

void CaptureHistoryStore::fullImage(QUuid id, Reply<QImage> reply)
{
    m_pictures.full(id, std::move(reply));
}

void CaptureHistoryStore::baseImage(QUuid id, Reply<QImage> reply)
{
    m_pictures.base(id, std::move(reply));
}

void CaptureHistoryStore::annotations(QUuid id, Reply<std::optional<std::vector<Annotation>>> reply)
{
    m_pictures.annotations(id, std::move(reply));
}

void CaptureHistoryStore::backdrop(QUuid id, Reply<std::optional<EditorBackdrop>> reply)
{
    m_pictures.backdrop(id, std::move(reply));
}

void CaptureHistoryStore::thumbnail(QUuid id, std::stop_token stop, Reply<QImage> reply)
{
    m_thumbnails.read(id, std::move(stop), std::move(reply));
}

QImage CaptureHistoryStore::cachedThumbnail(QUuid id) const
{
    return m_thumbnails.cached(id);
}

void CaptureHistoryStore::fullImageURL(QUuid id, Reply<QString> reply)
{
    m_pictures.fullPath(id, std::move(reply));
}

QString CaptureHistoryStore::baseImageURL(QUuid id) const
{
    return m_files.base(id);
}

CaptureOCRStore& CaptureHistoryStore::ocr() const
{
    return m_services.ocr;
}

// --- Text, and captures that come back

void CaptureHistoryStore::suspendIndexing()
{
    m_recorder.makeRoom(true);
    if (m_indexing)
        m_indexing->suspend();
}

void CaptureHistoryStore::scheduleIdleIndex()
{
    m_recorder.makeRoom(false);
    if (m_indexing)
        m_indexing->scheduleWhenIdle();
}

void CaptureHistoryStore::setReading(QUuid id, OCRResult text, std::vector<QRCode> codes)
{
    Scope::start(keepReading(id, std::move(text), std::move(codes)), "keeping what was read in a capture");
}

QCoro::Task<> CaptureHistoryStore::keepReading(QUuid id, OCRResult text, std::vector<QRCode> codes)
{
    co_await m_scope.reply<Nothing>([&](auto landed) { settle(id, [landed] { landed({}); }); });
    const HistoryEntry* recorded = entry(id);
    if (!recorded)
        co_return;
    const CaptureOCRStore::Key key{id, CaptureOCRStore::Kind::base};
    const QSize pixels(recorded->pixelWidth.value_or(0), recorded->pixelHeight.value_or(0));
    m_services.ocr.storeReading(text, codes, pixels, key);
    const OCRFile file{.text = OCRFile::TextPart{pixels, true, text}, .qr = OCRFile::QRPart{codes, true}};
    if (m_indexing)
        m_indexing->set(id, file.textWithCodes());
}

void CaptureHistoryStore::load(QUuid id, Reply<std::optional<Reopened>> reply)
{
    Scope::start(reopen(id, std::move(reply)), "reading a capture");
}

QCoro::Task<> CaptureHistoryStore::reopen(QUuid id, Reply<std::optional<Reopened>> reply)
{
    const QImage full = co_await m_scope.reply<QImage>([&](auto done) { fullImage(id, done); });
    const QImage base = co_await m_scope.reply<QImage>([&](auto done) { baseImage(id, done); });
    const HistoryEntry* found = entry(id);
    if (!found || full.isNull() || base.isNull()) {
        reply(std::nullopt);
        co_return;
    }
    CaptureResult result{.id = id,
                         .image = full,
                         .mode = fromRawString<CaptureMode>(found->mode).value_or(CaptureMode::area),
                         .date = found->date,
                         .pixelScale = found->pixelScale,
                         .subject = found->subject};
    if (found->sourceAppName)
        result.sourceApp = SourceApp{*found->sourceAppName, found->sourceBundleID.value_or(QString())};
    reply(Reopened{.result = result, .base = result.replacing(base, found->subject), .savedPath = found->savedPath});
}

// --- Waiting

void CaptureHistoryStore::settle(QUuid id, std::function<void()> callback)
{
    m_writes.whenSettled(id, std::move(callback));
}

void CaptureHistoryStore::whenSettled(std::function<void()> callback)
{
    Scope::start(waitForAll(std::move(callback)), "waiting for the history");
}

QCoro::Task<> CaptureHistoryStore::waitForAll(std::function<void()> callback)
{
    co_await m_scope.reply<Nothing>([this](auto stored) { m_editor.whenAllStored([stored] { stored({}); }); });
    co_await m_scope.reply<Nothing>([this](auto landed) { m_writes.whenAllSettled([landed] { landed({}); }); });
    co_await m_scope.reply<HistoryWriter::Written>([this](auto written) { m_records.writer().write(written); });
    callback();
}

void CaptureHistoryStore::backfillPixelSizes()
{
    if (!std::exchange(m_isBackfilled, true))
        whenLoaded([this] { Scope::start(backfillInBackground(), "measuring captures"); });
}

QCoro::Task<> CaptureHistoryStore::backfillInBackground()
{
    std::vector<QUuid> unmeasured;
    for (const HistoryEntry& entry : entries())
        if (!entry.pixelWidth || !entry.pixelHeight)
            unmeasured.push_back(entry.id);
    if (unmeasured.empty())
        co_return;
    const auto measure = [files = m_files, unmeasured] { return files.pixelSizes(unmeasured); };
    const QHash<QUuid, QSize> sizes = co_await m_scope.onWorker(Lane::thumbnails, QualityOfService::background,
                                                                Guarded::orElse(measure, QHash<QUuid, QSize>()));
    m_records.change([&sizes](HistoryState& state) {
        for (HistoryEntry& entry : state.entries)
            if (const QSize size = sizes.value(entry.id); size.isValid()) {
                entry.pixelWidth = size.width();
                entry.pixelHeight = size.height();
            }
    });
}

void CaptureHistoryStore::prepareToEnd()
{
    m_trash.lapse();
    m_recorder.landAll();
    m_editor.landAll();
    m_records.writer().writeLast();
}

} // namespace Kovrel
