#include "capture/CaptureFinisher.h"

#include "ports/CaptureDelivery.h"
#include "ports/CaptureEditors.h"
#include "ports/CapturePins.h"
#include "ports/CaptureTrace.h"
#include "ports/CardPile.h"
#include "ports/ReopenLedger.h"
#include "ports/SaveFailureToast.h"
#include "ports/Toasts.h"
#include "preferences/Preferences.h"

#include <QLoggingCategory>

namespace Kovrel {

// What is to be done with one capture.
struct CaptureFinisher::Delivery {
    bool save = false;
    bool copy = false;
    bool record = false;
    bool showCard = false;
    bool openEditor = false;
    bool pin = false;
};

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.capture")

CaptureOutcome outcomeOf(const CaptureResult& result)
{
    CaptureOutcome outcome{.kind = CaptureOutcome::Kind::finished, .result = result, .pixelSize = result.image.size()};
    outcome.result->image = {};
    return outcome;
}

// What is said where nothing saves and copies.
constexpr const char* noDelivery = "this program can neither save nor copy captures";

CaptureOutcome undelivered()
{
    return {.kind = CaptureOutcome::Kind::failed, .message = noDelivery};
}

std::shared_ptr<CaptureSave> saveWithoutDelivery()
{
    auto save = std::make_shared<CaptureSave>();
    save->finish(std::unexpected(SaveProblem{noDelivery}));
    return save;
}

} // namespace

CaptureFinisher::CaptureFinisher(CaptureServices& services)
    : m_services(services), m_scope(services.loop, services.workers)
{
}

Subscription CaptureFinisher::onCaptureFinished(std::function<void(const CaptureResult&)> observer)
{
    return m_observers.add(std::move(observer));
}

CaptureResult CaptureFinisher::makeResult(Pixels pixels) const
{
    return {
        .id = QUuid::createUuid(),
        .image = std::move(pixels.image),
        .mode = pixels.mode,
        .displayID = pixels.displayID,
        .date = m_services.loop.date(),
        .pixelScale = pixels.pixelScale,
        .sourceApp = pixels.sourceApp,
        .subject = {},
    };
}

CaptureFinisher::Delivery CaptureFinisher::planDelivery(const CaptureOptions& options) const
{
    const Ports& ports = m_services.ports;
    const AfterCaptureActions actions = m_services.preferences.get(Settings::afterCaptureActions);
    Delivery plan{
        .save = options.save || options.outputPath || actions.testFlag(AfterCaptureAction::save),
        .copy = options.copy || actions.testFlag(AfterCaptureAction::copy),
        .record = isRecording(),
        .showCard = actions.testFlag(AfterCaptureAction::showCard) && ports.cards && ports.cards->canPresent(),
        .openEditor = actions.testFlag(AfterCaptureAction::openEditor),
        .pin = actions.testFlag(AfterCaptureAction::pin),
    };
    // Nothing that was asked for would be done with the capture, or nothing at all: it must be found, and not be lost.
    const bool isShownElsewhere = (plan.openEditor && ports.editors) || (plan.pin && ports.pins);
    if (!plan.copy && !plan.showCard && !isShownElsewhere && (actions || !plan.record))
        plan.save = true;
    return plan;
}

QCoro::Task<> CaptureFinisher::finish(Pixels pixels, std::shared_ptr<CaptureRun> run, PendingComposition pendingFully)
{
    const auto cardDisplay = pixels.cardDisplayID ? pixels.cardDisplayID : pixels.displayID;
    CaptureResult result = makeResult(std::move(pixels));
    if (pendingFully) {
        ComposedCapture composed = co_await *pendingFully;
        result = result.replacing(composed.image, composed.subject);
    }
    m_observers.notify(result);

    const Delivery plan = planDelivery(run->options);
    const auto png = std::make_shared<EncodedPng>(result.image);
    std::shared_ptr<CaptureSave> save;
    if (plan.save)
        save = startSave(result, run->options, png);
    if (plan.copy)
        m_services.ports.delivery.tell(&CaptureDelivery::copy, result, png);
    std::shared_ptr<CaptureRecording> recording;
    if (plan.record)
        recording = record(result, save, png);
    if (plan.showCard)
        presentCard({.result = result, .didCopyToClipboard = plan.copy, .showOn = cardDisplay}, save, recording);
    else
        m_services.ports.cards.tell(&CardPile::settleAfterAbandonedCapture);
    showElsewhere(plan, result);

    if (run->options.waitsForFiles)
        co_await reportWhenOnDisk(outcomeOf(result), run, save, recording);
    else
        run->reply.give(m_services.ports.delivery || !(plan.save || plan.copy) ? outcomeOf(result) : undelivered());
}

std::shared_ptr<CaptureSave> CaptureFinisher::startSave(const CaptureResult& result, const CaptureOptions& options,
                                                        std::shared_ptr<EncodedPng> png)
{
    auto save = m_services.ports.delivery ? m_services.ports.delivery->save(result, options.outputPath, std::move(png))
                                          : saveWithoutDelivery();
    m_lastCaptureSave = save;
    save->whenDone([&ports = m_services.ports, id = result.id, display = result.displayID](const SaveOutcome& outcome) {
        if (outcome)
            ports.ledger.tell(&ReopenLedger::rememberSavedFile, id, *outcome);
        else
            ports.toasts.tell(&Toasts::present, SaveFailureToast::of(outcome.error(), ports), display, true);
    });
    return save;
}

std::shared_ptr<CaptureRecording>
CaptureFinisher::record(const CaptureResult& result, std::shared_ptr<CaptureSave> save, std::shared_ptr<EncodedPng> png)
{
    auto recording = m_services.ports.history->record(result, std::move(save), std::move(png));
    recording->whenDone([](const RecordOutcome& outcome) {
        if (!outcome)
            qCWarning(log, "The capture was not recorded: %s", qUtf8Printable(outcome.error()));
    });
    return recording;
}

bool CaptureFinisher::isRecording() const
{
    return m_services.ports.history && m_services.ports.history->isRecording();
}

void CaptureFinisher::showElsewhere(const Delivery& plan, const CaptureResult& result)
{
    const Ports& ports = m_services.ports;
    if (plan.openEditor && !ports.editors)
        qCInfo(log, "There is no editor to open the capture in");
    else if (plan.openEditor)
        ports.editors->open(result);
    if (plan.pin && !ports.pins)
        qCInfo(log, "Captures can't be pinned");
    else if (plan.pin)
        ports.pins->pin(result);
}

void CaptureFinisher::presentCard(const CardPile::Card& card, std::shared_ptr<CaptureSave> save,
                                  std::shared_ptr<CaptureRecording> recording)
{
    CardPile& cards = *m_services.ports.cards;
    const QUuid id = card.result.id;
    cards.present(card);
    if (save)
        cards.attachCaptureSave(std::move(save), id);
    if (recording)
        cards.attachRecording(std::move(recording), id);
    m_services.trace.mark("CARD presented (" + id.toString(QUuid::WithoutBraces) + ")");
}

QCoro::Task<> CaptureFinisher::reportWhenOnDisk(CaptureOutcome outcome, std::shared_ptr<CaptureRun> run,
                                                std::shared_ptr<CaptureSave> save,
                                                std::shared_ptr<CaptureRecording> recording)
{
    if (save) {
        SaveOutcome saved = co_await m_scope.reply<SaveOutcome>([&](auto done) { save->whenDone(done); });
        if (saved) {
            outcome.path = *saved;
        } else {
            outcome.kind = CaptureOutcome::Kind::failed;
            outcome.message = saved.error().message;
        }
    }
    if (recording) {
        RecordOutcome recorded = co_await m_scope.reply<RecordOutcome>([&](auto done) { recording->whenDone(done); });
        if (recorded)
            outcome.historyPath = *recorded;
    }
    run->reply.give(std::move(outcome));
}

CaptureResult CaptureFinisher::keepInHistory(Pixels pixels)
{
    CaptureResult result = makeResult(std::move(pixels));
    if (isRecording())
        record(result, nullptr, std::make_shared<EncodedPng>(result.image));
    return result;
}

} // namespace Kovrel
