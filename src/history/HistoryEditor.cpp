#include "history/HistoryEditor.h"

#include "editor/json/AnnotationJson.h"
#include "history/files/ThumbnailFile.h"
#include "platform/Guarded.h"
#include "platform/files/AtomicFile.h"

#include <QCoreApplication>
#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.history")

using Written = HistoryWriter::Written;

Written put(const QString& path, const std::optional<QByteArray>& bytes)
{
    if (!bytes)
        return std::unexpected(
            QCoreApplication::translate("HistoryEditor", "%1 can't be written: its picture can't be encoded.")
                .arg(path));
    if (const auto done = AtomicFile::writeThrough(path, *bytes, AtomicFile::Access::onlyOwner); !done)
        return std::unexpected(done.error().message);
    return {};
}

std::optional<QByteArray> pngOf(const QImage& image)
{
    return EncodedPng(image).bytes();
}

// On the lane of the history.
Written writeFiles(const HistoryFiles& files, const HistoryEdit& edit)
{
    Written written = put(files.annotations(edit.id), AnnotationJson::encoded(edit.annotations));
    if (written)
        written = put(files.backdrop(edit.id), edit.backdrop.encode());
    if (written && !edit.newBase.isNull())
        written = put(files.base(edit.id), pngOf(edit.newBase));
    if (written)
        written = put(files.edited(edit.id), edit.png ? edit.png->bytes() : pngOf(edit.flattened));
    if (written)
        written = put(files.thumbnail(edit.id), ThumbnailFile::encoded(edit.flattened));
    return written;
}

} // namespace

HistoryEditor::HistoryEditor(MainLoop& loop, Workers& workers, HistoryFiles files, HistoryRecords& records,
                             HistoryThumbnails& thumbnails, PendingWrites& writes, CaptureOCRStore& ocr,
                             std::function<void(QUuid)> changed)
    : m_workers(workers),
      m_files(std::move(files)),
      m_records(records),
      m_thumbnails(thumbnails),
      m_writes(writes),
      m_ocr(ocr),
      m_changed(std::move(changed)),
      m_edits(loop),
      m_scope(loop, workers)
{
}

void HistoryEditor::update(HistoryEdit edit, Reply<Done> done)
{
    m_pending.push_back(std::make_shared<Pending>(Pending{std::move(edit)}));
    Scope::start(updateInBackground(m_pending.back(), std::move(done)), "storing an edited capture");
}

QCoro::Task<> HistoryEditor::updateInBackground(std::shared_ptr<Pending> pending, Reply<Done> done)
{
    const QUuid id = pending->edit.id;
    const auto waiting = m_edits.begin(id);
    co_await m_scope.reply<Nothing>([&](auto landed) { m_writes.whenSettled(id, [landed] { landed({}); }); });
    const auto underWay = m_writes.begin(id);
    Done outcome;
    try {
        outcome = co_await store(pending);
    } catch (const std::exception&) { // no thread could be had
        outcome = std::unexpected(Guarded::reason());
    }
    std::erase(m_pending, pending);
    if (done)
        done(outcome);
}

QCoro::Task<HistoryEditor::Done> HistoryEditor::store(std::shared_ptr<Pending> pending)
{
    if (!m_records.entry(pending->edit.id))
        co_return std::unexpected(
            QCoreApplication::translate("HistoryEditor", "The capture is not in the history any more."));
    Done outcome =
        co_await m_scope.onWorker(Lane::history, QualityOfService::utility, Guarded::orReason(filesJob(*pending)));
    if (!outcome)
        co_return outcome;
    apply(*pending);
    outcome = co_await m_scope.reply<Done>([this](auto written) { m_records.writer().write(written); });
    co_return outcome;
}

// Of a capture that is recorded.
HistoryEditor::Job HistoryEditor::filesJob(Pending& pending) const
{
    pending.isWriting = true;
    pending.savedPathBefore = m_records.entry(pending.edit.id)->savedPath;
    return [files = m_files, edit = pending.edit] { return writeFiles(files, edit); };
}

void HistoryEditor::landAll()
{
    for (const auto& pending : std::exchange(m_pending, {}))
        if (m_records.entry(pending->edit.id))
            land(*pending);
}

void HistoryEditor::land(Pending& pending)
{
    if (!pending.isWriting)
        m_workers.submit(
            Lane::history, QualityOfService::utility, [job = Guarded::orReason(filesJob(pending))]() mutable {
                if (const Done written = job(); !written)
                    qCWarning(log, "An edited capture was not stored: %s", qUtf8Printable(written.error()));
            });
    apply(pending);
}

void HistoryEditor::apply(Pending& pending)
{
    if (std::exchange(pending.isApplied, true))
        return;
    using Kind = CaptureOCRStore::Kind;
    const HistoryEdit& edit = pending.edit;
    const bool isNewBase = !edit.newBase.isNull();
    m_ocr.invalidate(edit.id, isNewBase ? std::set{Kind::base, Kind::edited} : std::set{Kind::edited});
    m_thumbnails.drop(edit.id);
    m_records.changeEntry(edit.id, [&](HistoryEntry& entry) {
        entry.subject = edit.subject;
        // One that was saved elsewhere meanwhile is newer.
        if (entry.savedPath == pending.savedPathBefore)
            entry.savedPath = edit.savedPath;
        if (isNewBase) {
            entry.pixelWidth = edit.newBase.width();
            entry.pixelHeight = edit.newBase.height();
        }
    });
    m_changed(edit.id);
}

} // namespace Kovrel
