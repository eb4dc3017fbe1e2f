#include "cards/CardActions.h"

#include "platform/Guarded.h"
#include "ports/CaptureDelivery.h"
#include "ports/CaptureEditors.h"
#include "ports/CapturePins.h"
#include "ports/ReopenLedger.h"
#include "ports/SaveFailureToast.h"
#include "ports/Toasts.h"

namespace Kovrel {

CardActions::CardActions(CardServices services, CardShelf& shelf, CardPixels& pixels, CardFiles& files,
                         Callbacks callbacks)
    : m_services(std::move(services)),
      m_shelf(shelf),
      m_pixels(pixels),
      m_files(files),
      m_callbacks(std::move(callbacks)),
      m_scope(m_services.loop, m_services.workers)
{
}

bool CardActions::canEdit() const
{
    return bool(m_services.ports.editors);
}

bool CardActions::canPin() const
{
    return bool(m_services.ports.pins);
}

void CardActions::tell(QUuid id, ToastContent toast)
{
    const PiledCard* card = m_shelf.find(id);
    const auto display = card ? std::optional(card->displayID) : std::nullopt;
    m_services.ports.toasts.tell(&Toasts::present, std::move(toast), display, true);
}

void CardActions::tellMissing(QUuid id)
{
    tell(id, {.message = tr("The picture of this capture can't be read"), .icon = "exclamationmark.triangle"});
}

// --- Copying

void CardActions::copy(QUuid id)
{
    Scope::start(copyNow(id), "Copying a card");
}

QCoro::Task<> CardActions::copyNow(QUuid id)
{
    const Captured capture = co_await m_scope.join(m_pixels.capture(id));
    if (!capture || !m_services.ports.delivery) {
        tellMissing(id);
        co_return;
    }
    m_services.ports.delivery->copy(*capture, std::make_shared<EncodedPng>(capture->image));
    m_callbacks.copied(id);
}

// --- Saving

void CardActions::save(QUuid id)
{
    Scope::start(saveNow(id), "Saving a card");
}

QCoro::Task<> CardActions::saveNow(QUuid id)
{
    const std::optional<QString> path = co_await ensureSaved(id);
    const PiledCard* card = m_shelf.find(id);
    if (path && card)
        m_services.ports.toasts.tell(&Toasts::showSaved, *path, card->displayID);
}

void CardActions::reveal(QUuid id)
{
    Scope::start(revealNow(id), "Showing a card in the file manager");
}

QCoro::Task<> CardActions::revealNow(QUuid id)
{
    const std::optional<QString> path = co_await ensureSaved(id);
    if (path)
        m_services.ports.delivery.tell(&CaptureDelivery::reveal, *path);
}

QCoro::Task<std::optional<QString>> CardActions::ensureSaved(QUuid id)
{
    const PiledCard* before = m_shelf.find(id);
    if (const std::shared_ptr<CaptureSave> underWay = before && before->isSaving() ? before->save : nullptr) {
        const SaveOutcome outcome = co_await m_scope.reply<SaveOutcome>([&](auto done) { underWay->whenDone(done); });
        if (outcome)
            co_return *outcome;
    }
    const std::optional<QString> saved = co_await m_scope.join(m_files.saved(id));
    if (saved || !m_shelf.find(id))
        co_return saved;
    const Captured capture = co_await m_scope.join(m_pixels.capture(id));
    if (!capture || !m_services.ports.delivery) {
        tellMissing(id);
        co_return std::nullopt;
    }
    const auto save = m_services.ports.delivery->save(*capture, {}, std::make_shared<EncodedPng>(capture->image));
    watch(id, save);
    const SaveOutcome outcome = co_await m_scope.reply<SaveOutcome>([&](auto done) { save->whenDone(done); });
    if (outcome)
        co_return *outcome;
    tell(id, SaveFailureToast::of(outcome.error(), m_services.ports));
    co_return std::nullopt;
}

void CardActions::watch(QUuid id, std::shared_ptr<CaptureSave> save)
{
    PiledCard* card = m_shelf.find(id);
    if (!card)
        return;
    card->save = save;
    m_callbacks.changed(id);
    save->whenDone(m_lifeline.guard([this, id](const SaveOutcome& outcome) { saveEnded(id, outcome); }));
}

void CardActions::saveEnded(QUuid id, const SaveOutcome& outcome)
{
    if (outcome) {
        m_services.ports.ledger.tell(&ReopenLedger::rememberSavedFile, id, *outcome);
        m_services.ports.history.tell(&CaptureHistory::setSavedPath, id, *outcome);
    }
    PiledCard* card = m_shelf.find(id);
    if (!card)
        return;
    if (outcome)
        card->savedPath = *outcome;
    m_callbacks.changed(id);
}

// --- Elsewhere

void CardActions::edit(QUuid id)
{
    Scope::start(editNow(id), "Opening a card in the editor");
}

QCoro::Task<> CardActions::editNow(QUuid id)
{
    const Captured capture = co_await m_scope.join(m_pixels.base(id));
    if (capture)
        m_services.ports.editors.tell(&CaptureEditors::open, *capture);
    else
        tellMissing(id);
}

void CardActions::pin(QUuid id)
{
    Scope::start(pinNow(id), "Pinning a card");
}

QCoro::Task<> CardActions::pinNow(QUuid id)
{
    const Captured capture = co_await m_scope.join(m_pixels.capture(id));
    if (capture)
        m_services.ports.pins.tell(&CapturePins::pin, *capture);
    else
        tellMissing(id);
}

// --- Turning

void CardActions::rotate(QUuid id, QuarterTurn turn)
{
    Scope::start(rotateNow(id, turn), "Turning a card");
}

// The history knows what is being recorded, too, and does not let the program end before it has turned it.
QCoro::Task<> CardActions::rotateNow(QUuid id, QuarterTurn turn)
{
    const PiledCard* before = m_shelf.find(id);
    const bool isRecorded = before && (before->isKept || before->recording) && m_services.ports.history;
    bool isTurned = false;
    if (isRecorded)
        isTurned = co_await m_scope.reply<bool>([&](auto done) { m_services.ports.history->rotate(id, turn, done); });
    const PiledCard* card = m_shelf.find(id);
    if (isTurned || !card)
        co_return;
    if (card->isKept)
        tellMissing(id);
    else
        co_await rotateHere(id, turn);
}

QCoro::Task<> CardActions::rotateHere(QUuid id, QuarterTurn turn)
{
    const PiledCard* before = m_shelf.find(id);
    const auto job = [image = before ? before->result.image : QImage(), turn] { return turned(image, turn); };
    const QImage image = co_await m_scope.onWorker(Lane::cardFace, Guarded::orElse(job, QImage()));
    PiledCard* card = m_shelf.find(id);
    if (!card || image.isNull())
        co_return;
    card->result.image = image;
    m_callbacks.turned(id);
}

} // namespace Kovrel
