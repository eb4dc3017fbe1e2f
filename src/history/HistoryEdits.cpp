#include "history/HistoryEdits.h"

#include "platform/Guarded.h"
#include "platform/ImageCodec.h"
#include "platform/Workers.h"

#include <QFileInfo>

#include <algorithm>

namespace Kovrel {

namespace {

// A file that nobody has written since the history has its picture is still that picture, or is behind it; one that was
// written later may have been saved from it.
bool shows(const QString& file, const QString& picture)
{
    const QFileInfo info(file);
    if (!info.exists() || picture.isEmpty())
        return false;
    if (info.lastModified() <= QFileInfo(picture).lastModified())
        return true;
    const auto written = ImageCodec::decodeFile(file), kept = ImageCodec::decodeFile(picture);
    return written && kept && *written == *kept;
}

} // namespace

HistoryEdits::HistoryEdits(MainLoop& loop, Workers& workers, CaptureHistoryStore& store)
    : m_loop(loop), m_store(store), m_scope(loop, workers)
{
}

void HistoryEdits::idOf(QString path, Reply<std::optional<QUuid>> reply)
{
    Scope::start(find(std::move(path), std::move(reply)), "looking for a file's capture");
}

QCoro::Task<> HistoryEdits::find(QString path, Reply<std::optional<QUuid>> reply)
{
    co_await m_scope.reply<Nothing>([this](auto done) { m_store.whenLoaded([done] { done({}); }); });
    const auto isOfFile = [&](const HistoryEntry& entry) { return entry.savedPath == path; };
    const auto entry = std::ranges::find_if(m_store.entries(), isOfFile);
    if (entry == m_store.entries().end()) {
        reply(std::nullopt);
        co_return;
    }
    const QUuid id = entry->id;
    const QString picture = co_await m_scope.reply<QString>([&](auto done) { m_store.fullImageURL(id, done); });
    const auto job = [path, picture] { return shows(path, picture); };
    const bool isShown =
        co_await m_scope.onWorker(Lane::utility, QualityOfService::userInteractive, Guarded::orElse(job, false));
    reply(isShown ? std::optional(id) : std::nullopt);
}

// It is saved already, so nobody has to rescue it.
void HistoryEdits::add(EditorCapture capture, QString path)
{
    const auto saved = std::make_shared<CaptureSave>();
    saved->finish(std::move(path));
    m_store.record({.id = capture.id,
                    .image = std::move(capture.image),
                    .date = m_loop.date(),
                    .pixelScale = capture.scale,
                    .subject = capture.subject},
                   saved, nullptr);
}

void HistoryEdits::remove(QUuid id)
{
    m_store.settle(id, [this, id] { m_store.discard(id); });
}

void HistoryEdits::open(QUuid id, Reply<std::optional<Opened>> reply)
{
    Scope::start(read(id, std::move(reply)), "opening a capture");
}

QCoro::Task<> HistoryEdits::read(QUuid id, Reply<std::optional<Opened>> reply)
{
    const QImage base = co_await m_scope.reply<QImage>([&](auto done) { m_store.baseImage(id, done); });
    auto marks = co_await m_scope.reply<std::optional<std::vector<Annotation>>>(
        [&](auto done) { m_store.annotations(id, done); });
    const auto backdrop =
        co_await m_scope.reply<std::optional<EditorBackdrop>>([&](auto done) { m_store.backdrop(id, done); });
    const HistoryEntry* const entry = m_store.entry(id);
    if (!entry || base.isNull()) {
        reply(std::nullopt);
        co_return;
    }
    EditorDocument document{std::move(marks).value_or(std::vector<Annotation>()), {}};
    document.composition.backdrop = backdrop.value_or(EditorBackdrop::none);
    reply(Opened{{id, base, entry->pixelScale, entry->subject}, std::move(document), entry->savedPath});
}

void HistoryEdits::keep(Edit edit, Reply<std::expected<void, QString>> reply)
{
    m_store.updateImage({.id = edit.capture.id,
                         .flattened = std::move(edit.flattened),
                         .annotations = std::move(edit.document.marks),
                         .backdrop = edit.document.composition.backdrop,
                         .subject = edit.capture.subject,
                         .savedPath = edit.savedPath,
                         .newBase = std::move(edit.capture.image)},
                        std::move(reply));
}

} // namespace Kovrel
