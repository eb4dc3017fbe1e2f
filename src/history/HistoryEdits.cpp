#include "history/HistoryEdits.h"

namespace Kovrel {

HistoryEdits::HistoryEdits(MainLoop& loop, Workers& workers, CaptureHistoryStore& store)
    : m_store(store), m_scope(loop, workers)
{
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
