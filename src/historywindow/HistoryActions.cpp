#include "historywindow/HistoryActions.h"

#include "ports/CaptureDelivery.h"
#include "ports/CaptureEditors.h"
#include "ports/CapturePins.h"
#include "ports/Captures.h"
#include "ports/CardPile.h"
#include "ports/SaveFailureToast.h"
#include "ports/Toasts.h"
#include "preferences/Settings.h"
#include "saving/FileNameFormatter.h"

#include <QDir>
#include <QFileInfo>

namespace Kovrel {

HistoryActions::HistoryActions(Services services)
    : m_services(services),
      m_saveWithPanel(services.loop, services.workers, services.filePanel, services.fileManager),
      m_scope(services.loop, services.workers)
{
}

Wait<std::optional<CaptureHistory::Reopened>> HistoryActions::load(QUuid id)
{
    return m_scope.reply<std::optional<CaptureHistory::Reopened>>(
        [&](auto done) { m_services.store.load(id, std::move(done)); });
}

void HistoryActions::tell(ToastContent toast)
{
    m_services.ports.toasts.tell(&Toasts::present, std::move(toast), std::nullopt, true);
}

void HistoryActions::tellMissing()
{
    tell({.message = tr("The picture of this capture can't be read"), .icon = "exclamationmark.triangle"});
}

void HistoryActions::open(QUuid id)
{
    if (canEdit())
        edit(id);
    else if (canReopen())
        reopen({id});
    else
        copy(id);
}

// --- Copying

void HistoryActions::copy(QUuid id)
{
    Scope::start(copyNow(id), "Copying a capture");
}

QCoro::Task<> HistoryActions::copyNow(QUuid id)
{
    const auto capture = co_await load(id);
    if (!capture) {
        tellMissing();
        co_return;
    }
    m_services.ports.delivery.tell(&CaptureDelivery::copy, capture->result,
                                   std::make_shared<EncodedPng>(capture->result.image));
    tell({.message = tr("Copied"), .icon = "doc.on.clipboard.fill", .copied = true});
}

void HistoryActions::copyText(QUuid id)
{
    Scope::start(copyTextNow(id), "Copying the text of a capture");
}

QCoro::Task<> HistoryActions::copyTextNow(QUuid id)
{
    const OCROutcome read = co_await text(id, QualityOfService::userInitiated);
    if (!read || read->fullText.isEmpty()) {
        tell({.message = tr("No text found"), .icon = "text.viewfinder"});
        co_return;
    }
    copyPart(read->fullText);
}

void HistoryActions::copyPart(const QString& text)
{
    m_services.ports.delivery.tell(&CaptureDelivery::copyText, text);
    tell({.message = tr("Text copied"), .icon = "doc.on.clipboard.fill", .copied = true});
}

void HistoryActions::openLink(const QUrl& target)
{
    m_services.ports.delivery.tell(&CaptureDelivery::openLink, target);
}

void HistoryActions::readText(QUuid id, Reply<OCROutcome> reply)
{
    Scope::start(readTextNow(id, std::move(reply)), "Reading the text of a capture");
}

QCoro::Task<> HistoryActions::readTextNow(QUuid id, Reply<OCROutcome> reply)
{
    const OCROutcome read = co_await text(id, QualityOfService::utility);
    reply(read);
}

// Of the capture as it looks now.
QCoro::Task<OCROutcome> HistoryActions::text(QUuid id, QualityOfService qos)
{
    CaptureHistoryStore& store = m_services.store;
    const QString path = co_await m_scope.reply<QString>([&](auto done) { store.fullImageURL(id, std::move(done)); });
    const bool isEdited = path != store.baseImageURL(id);
    const CaptureOCRStore::Key key{id, isEdited ? CaptureOCRStore::Kind::edited : CaptureOCRStore::Kind::base};
    const OCROutcome read = co_await m_scope.join(
        store.ocr().text(key, qos, true, [this, id]() -> QCoro::Task<QImage> { return pixels(id); }));
    co_return read;
}

QCoro::Task<QImage> HistoryActions::pixels(QUuid id)
{
    co_return co_await m_scope.reply<QImage>([&](auto done) { m_services.store.fullImage(id, std::move(done)); });
}

// --- Saving

void HistoryActions::save(QList<QUuid> ids)
{
    Scope::start(saveNow(std::move(ids)), "Saving captures");
}

// One after the other, so that only one picture is in memory.
QCoro::Task<> HistoryActions::saveNow(QList<QUuid> ids)
{
    QString lastPath;
    for (const QUuid& id : ids) {
        const auto capture = co_await load(id);
        if (!capture || !m_services.ports.delivery) {
            tellMissing();
            continue;
        }
        const auto png = std::make_shared<EncodedPng>(capture->result.image);
        const auto save = m_services.ports.delivery->save(capture->result, {}, png);
        const SaveOutcome outcome =
            co_await m_scope.reply<SaveOutcome>([&](auto done) { save->whenDone([done](const auto& o) { done(o); }); });
        if (outcome) {
            lastPath = *outcome;
            m_services.store.setSavedPath(id, lastPath);
        } else {
            tell(SaveFailureToast::of(outcome.error(), m_services.ports));
        }
    }
    if (!lastPath.isEmpty())
        m_services.ports.toasts.tell(&Toasts::showSaved, lastPath, std::nullopt);
}

void HistoryActions::saveAs(QUuid id, QPointer<QWindow> window)
{
    Scope::start(saveAsNow(id, std::move(window)), "Saving a capture as a file");
}

QCoro::Task<> HistoryActions::saveAsNow(QUuid id, QPointer<QWindow> window)
{
    const auto capture = co_await load(id);
    if (!capture) {
        tellMissing();
        co_return;
    }
    const Preferences& preferences = m_services.preferences;
    const ImageFormat format = preferences.get(Settings::imageFormat);
    const QString name = capture->savedPath ? QFileInfo(*capture->savedPath).completeBaseName()
                                            : FileNameFormatter::format(preferences.get(Settings::fileNameTemplate),
                                                                        capture->result.date);
    m_saveWithPanel.saveWithPanel({
        .image = capture->result.image,
        .suggestedPath = QDir::home().filePath(name + '.' + rawString(format)),
        .format = format,
        .quality = preferences.get(Settings::jpegQuality),
        .window = std::move(window),
        .onSaved = [&store = m_services.store, id](const QString& path) { store.setSavedPath(id, path); },
        .onFailed =
            [this](const SaveFailure& failure) {
                tell(SaveFailureToast::of({.message = failure.message}, m_services.ports));
            },
    });
}

// --- Elsewhere

void HistoryActions::reveal(QUuid id)
{
    Scope::start(revealNow(id), "Showing a capture in the file manager");
}

QCoro::Task<> HistoryActions::revealNow(QUuid id)
{
    const HistoryEntry* entry = m_services.store.entry(id);
    const QString saved = entry ? entry->savedPath.value_or(QString()) : QString();
    const bool isThere = co_await m_scope.onWorker(Lane::history, [saved] { return QFileInfo::exists(saved); });
    const QString own =
        co_await m_scope.reply<QString>([&](auto done) { m_services.store.fullImageURL(id, std::move(done)); });
    m_services.ports.delivery.tell(&CaptureDelivery::reveal, isThere ? saved : own);
}

bool HistoryActions::canReopen() const
{
    return bool(m_services.ports.cards) && bool(m_services.ports.captures);
}

void HistoryActions::reopen(const QList<QUuid>& ids)
{
    for (const QUuid& id : ids)
        m_services.ports.captures.tell(&Captures::presentFromHistory, id, [](bool) {});
}

bool HistoryActions::canPin() const
{
    return bool(m_services.ports.pins);
}

void HistoryActions::pin(const QList<QUuid>& ids)
{
    Scope::start(pinNow(ids), "Pinning captures");
}

QCoro::Task<> HistoryActions::pinNow(QList<QUuid> ids)
{
    for (const QUuid& id : ids) {
        const auto capture = co_await load(id);
        if (capture)
            m_services.ports.pins.tell(&CapturePins::pin, capture->result);
        else
            tellMissing();
    }
}

bool HistoryActions::canEdit() const
{
    return bool(m_services.ports.editors);
}

void HistoryActions::edit(QUuid id)
{
    Scope::start(editNow(id), "Opening a capture in the editor");
}

QCoro::Task<> HistoryActions::editNow(QUuid id)
{
    const auto capture = co_await load(id);
    if (capture)
        m_services.ports.editors.tell(&CaptureEditors::open, capture->base);
    else
        tellMissing();
}

} // namespace Kovrel
