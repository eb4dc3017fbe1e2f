#include "history/HistoryRecorder.h"

#include "platform/Guarded.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/PrivateFolder.h"

#include <QCoreApplication>
#include <QLoggingCategory>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.history")

constexpr auto longestWait = 5s;
constexpr auto pause = 150ms;

using Written = HistoryWriter::Written;

std::optional<QString> savedPathOf(const std::shared_ptr<CaptureSave>& save)
{
    std::optional<QString> path;
    if (save && save->isDone())
        save->whenDone(
            [&path](const SaveOutcome& outcome) { path = outcome ? std::optional(*outcome) : std::nullopt; });
    return path;
}

// A save that is still under way looks after the capture itself.
bool isHeldBy(const std::shared_ptr<CaptureSave>& save)
{
    bool isHeld = bool(save);
    if (save && save->isDone())
        save->whenDone([&isHeld](const SaveOutcome& outcome) { isHeld = outcome || outcome.error().keptAs; });
    return isHeld;
}

HistoryEntry entryOf(const CaptureResult& result)
{
    HistoryEntry entry{.id = result.id,
                       .date = result.date.toUTC(),
                       .mode = rawString(result.mode),
                       .pixelScale = result.pixelScale,
                       .pixelWidth = result.image.width(),
                       .pixelHeight = result.image.height(),
                       .subject = result.subject};
    if (result.sourceApp) {
        entry.sourceBundleID = result.sourceApp->identifier;
        entry.sourceAppName = result.sourceApp->name;
    }
    return entry;
}

} // namespace

HistoryRecorder::HistoryRecorder(MainLoop& loop, Workers& workers, HistoryFiles files, HistoryRecords& records,
                                 HistoryThumbnails& thumbnails, PendingWrites& writes, std::function<void()> landed,
                                 Rescue rescue)
    : m_loop(loop),
      m_workers(workers),
      m_files(std::move(files)),
      m_records(records),
      m_thumbnails(thumbnails),
      m_writes(writes),
      m_landed(std::move(landed)),
      m_rescue(std::move(rescue)),
      m_scope(loop, workers)
{
}

std::shared_ptr<CaptureRecording> HistoryRecorder::record(CaptureResult result, std::shared_ptr<CaptureSave> save,
                                                          std::shared_ptr<EncodedPng> png)
{
    m_isRoomNeeded = false; // this capture's pixels are in hand
    if (const auto pending = m_pending.find(result.id); pending != m_pending.end())
        return pending->second.recording;
    auto recording = std::make_shared<CaptureRecording>();
    if (m_records.entry(result.id)) {
        recording->finish(m_files.base(result.id));
        return recording;
    }
    if (!png)
        png = std::make_shared<EncodedPng>(result.image);
    m_pending[result.id] = {.entry = entryOf(result), .png = std::move(png), .recording = recording};
    Scope::start(perform(std::move(result), std::move(save)), "recording a capture");
    return recording;
}

QCoro::Task<> HistoryRecorder::perform(CaptureResult result, std::shared_ptr<CaptureSave> save)
{
    const QUuid id = result.id;
    const auto underWay = m_writes.begin(id);
    co_await waitForQuiet(save);
    m_pending[id].entry.savedPath = savedPathOf(save);
    Written written = co_await writePicture(id);
    if (written) {
        insert(id);
        m_thumbnails.make(id, result.image);
        noteSave(id, save);
        written = co_await m_scope.reply<Written>([this](auto done) { m_records.writer().write(done); });
    }
    finish(std::move(result), save, written);
}

void HistoryRecorder::finish(CaptureResult result, const std::shared_ptr<CaptureSave>& save, const Written& written)
{
    const QUuid id = result.id;
    const Pending pending = std::exchange(m_pending[id], {});
    m_pending.erase(id);
    if (!written && m_rescue && !isHeldBy(save))
        m_rescue(std::move(result), pending.png, written.error());
    pending.recording->finish(written ? RecordOutcome(m_files.base(id)) : std::unexpected(written.error()));
}

// Writing would compete with a save that somebody waits for, and with a capture that is about to be taken.
QCoro::Task<> HistoryRecorder::waitForQuiet(std::shared_ptr<CaptureSave> save)
{
    const auto deadline = m_loop.now() + longestWait;
    if (save && !save->isDone())
        co_await m_scope.reply<Nothing>([&](Reply<Nothing> done) {
            save->whenDone([done](const SaveOutcome&) { done({}); });
            m_loop.after(longestWait, [done] { done({}); });
        });
    while (m_isRoomNeeded && m_loop.now() < deadline)
        co_await m_scope.sleep(pause);
}

QCoro::Task<Written> HistoryRecorder::writePicture(QUuid id)
{
    m_pending[id].isWriting = true;
    Written written;
    try {
        written =
            co_await m_scope.onWorker(Lane::history, QualityOfService::utility, Guarded::orReason(pictureJob(id)));
    } catch (const std::exception&) { // no thread could be had
        written = std::unexpected(Guarded::reason());
    }
    co_return written;
}

HistoryRecorder::Job HistoryRecorder::pictureJob(QUuid id)
{
    return [files = m_files, id, png = m_pending[id].png]() -> Written {
        const auto bytes = png->bytes();
        if (!bytes)
            return std::unexpected(
                QCoreApplication::translate("HistoryRecorder", "The capture can't be encoded as PNG."));
        PrivateFolder::make(files.folder());
        if (const auto done = AtomicFile::writeThrough(files.base(id), *bytes, AtomicFile::Access::onlyOwner); !done)
            return std::unexpected(done.error().message);
        return {};
    };
}

void HistoryRecorder::insert(QUuid id)
{
    Pending& pending = m_pending[id];
    if (std::exchange(pending.isInserted, true))
        return;
    m_records.change([&pending](HistoryState& state) { state.insert(pending.entry); });
    m_landed();
}

// A save that took longer than we waited.
void HistoryRecorder::noteSave(QUuid id, const std::shared_ptr<CaptureSave>& save)
{
    if (save && !save->isDone())
        save->whenDone(m_lifeline.guard([this, id](const SaveOutcome& outcome) {
            if (outcome)
                m_records.changeEntry(id, [&](HistoryEntry& entry) { entry.savedPath = *outcome; });
        }));
}

void HistoryRecorder::landAll()
{
    for (auto& [id, pending] : m_pending) {
        if (!std::exchange(pending.isWriting, true))
            m_workers.submit(Lane::history, QualityOfService::utility,
                             [job = Guarded::orReason(pictureJob(id))]() mutable {
                                 if (const Written written = job(); !written)
                                     qCWarning(log, "A capture was not recorded: %s", qUtf8Printable(written.error()));
                             });
        insert(id);
    }
}

} // namespace Kovrel
