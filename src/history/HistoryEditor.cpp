#include "history/HistoryEditor.h"

#include "editor/json/AnnotationJson.h"
#include "history/files/ThumbnailFile.h"
#include "platform/Guarded.h"
#include "platform/files/AtomicFile.h"

#include <QCoreApplication>

namespace Kovrel {

namespace {

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
    : m_files(std::move(files)),
      m_records(records),
      m_thumbnails(thumbnails),
      m_writes(writes),
      m_ocr(ocr),
      m_changed(std::move(changed)),
      m_scope(loop, workers)
{
}

void HistoryEditor::update(HistoryEdit edit, Reply<Done> done)
{
    Scope::start(updateInBackground(std::move(edit), std::move(done)), "storing an edited capture");
}

QCoro::Task<> HistoryEditor::updateInBackground(HistoryEdit edit, Reply<Done> done)
{
    const QUuid id = edit.id;
    co_await m_scope.reply<Nothing>([&](auto landed) { m_writes.whenSettled(id, [landed] { landed({}); }); });
    const auto underWay = m_writes.begin(id);
    Done outcome;
    try {
        outcome = co_await store(std::move(edit));
    } catch (const std::exception&) { // no thread could be had
        outcome = std::unexpected(Guarded::reason());
    }
    if (done)
        done(outcome);
}

QCoro::Task<HistoryEditor::Done> HistoryEditor::store(HistoryEdit edit)
{
    const HistoryEntry* entry = m_records.entry(edit.id);
    if (!entry)
        co_return std::unexpected(
            QCoreApplication::translate("HistoryEditor", "The capture is not in the history any more."));
    const std::optional<QString> savedPath = entry->savedPath;
    const auto job = [files = m_files, edit] { return writeFiles(files, edit); };
    Done outcome = co_await m_scope.onWorker(Lane::history, QualityOfService::utility, Guarded::orReason(job));
    if (!outcome)
        co_return outcome;
    apply(edit, savedPath);
    outcome = co_await m_scope.reply<Done>([this](auto written) { m_records.writer().write(written); });
    co_return outcome;
}

void HistoryEditor::apply(const HistoryEdit& edit, const std::optional<QString>& savedPathBefore)
{
    using Kind = CaptureOCRStore::Kind;
    const bool isNewBase = !edit.newBase.isNull();
    m_ocr.invalidate(edit.id, isNewBase ? std::set{Kind::base, Kind::edited} : std::set{Kind::edited});
    m_thumbnails.drop(edit.id);
    m_records.changeEntry(edit.id, [&](HistoryEntry& entry) {
        entry.subject = edit.subject;
        // One that was saved elsewhere meanwhile is newer.
        if (entry.savedPath == savedPathBefore)
            entry.savedPath = edit.savedPath;
        if (isNewBase) {
            entry.pixelWidth = edit.newBase.width();
            entry.pixelHeight = edit.newBase.height();
        }
    });
    m_changed(edit.id);
}

} // namespace Kovrel
