#include "capture/CaptureFinisher.h"

#include "ports/CaptureDelivery.h"
#include "ports/CaptureHistory.h"
#include "ports/CaptureTrace.h"
#include "ports/CardPile.h"
#include "ports/ReopenLedger.h"
#include "ports/Toasts.h"
#include "preferences/Preferences.h"

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

CaptureOutcome outcomeOf(const CaptureResult& result)
{
    CaptureOutcome outcome{.kind = CaptureOutcome::Kind::finished, .result = result, .pixelSize = result.image.size()};
    outcome.result->image = {};
    return outcome;
}

} // namespace

CaptureFinisher::CaptureFinisher(CaptureServices& services)
    : m_services(services), m_scope(services.loop, services.workers)
{
}

void CaptureFinisher::onCaptureFinished(std::function<void(const CaptureResult&)> observer)
{
    m_observers.push_back(std::move(observer));
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
    const AfterCaptureActions actions = m_services.preferences.afterCaptureActions();
    Delivery plan{
        .save = options.save || options.outputPath || actions.testFlag(AfterCaptureAction::save),
        .copy = options.copy || actions.testFlag(AfterCaptureAction::copy),
        .record = m_services.history.isRecording(),
        .showCard = actions.testFlag(AfterCaptureAction::showCard) && m_services.cards.canPresent(),
        .openEditor = actions.testFlag(AfterCaptureAction::openEditor),
        .pin = actions.testFlag(AfterCaptureAction::pin),
    };
    // Nothing would hold the capture: it must not be lost.
    if (!plan.save && !plan.record && !plan.showCard)
        plan.save = true;
    return plan;
}

QCoro::Task<> CaptureFinisher::finish(Pixels pixels, std::shared_ptr<CaptureRun> run, PendingComposition pendingFully)
{
    CaptureResult result = makeResult(std::move(pixels));
    if (pendingFully) {
        ComposedCapture composed = co_await *pendingFully;
        result = result.replacing(composed.image, composed.subject);
    }
    for (const auto& observer : m_observers)
        observer(result);

    const Delivery plan = planDelivery(run->options);
    const auto png = std::make_shared<EncodedPng>(result.image);
    std::shared_ptr<CaptureSave> save;
    if (plan.save)
        save = startSave(result, run->options, png);
    if (plan.copy)
        m_services.delivery.copy(result, png);
    std::optional<Wait<std::optional<QString>>> record;
    if (plan.record)
        record = m_scope.reply<std::optional<QString>>(
            [&](auto done) { m_services.history.record(result, save, png, done); });
    if (plan.showCard)
        presentCard(result, plan.copy, save);
    if (plan.openEditor)
        m_services.delivery.openEditor(result);
    if (plan.pin)
        m_services.delivery.pin(result);

    if (run->options.waitsForFiles)
        co_await reportWhenOnDisk(outcomeOf(result), run, save, std::move(record));
    else
        run->reply.give(outcomeOf(result));
}

std::shared_ptr<CaptureSave> CaptureFinisher::startSave(const CaptureResult& result, const CaptureOptions& options,
                                                        std::shared_ptr<EncodedPng> png)
{
    auto save = m_services.delivery.save(result, options.outputPath, std::move(png));
    m_lastCaptureSave = save;
    save->whenDone([&services = m_services, id = result.id, display = result.displayID](const SaveOutcome& outcome) {
        if (outcome)
            services.ledger.rememberSavedFile(id, *outcome);
        else
            services.toasts.present({.message = tr("The capture could not be saved"),
                                     .subtitle = outcome.error(),
                                     .icon = "exclamationmark.triangle"},
                                    display, true);
    });
    return save;
}

void CaptureFinisher::presentCard(const CaptureResult& result, bool didCopy, std::shared_ptr<CaptureSave> save)
{
    m_services.cards.present({.result = result,
                              .savedPath = {},
                              .didCopyToClipboard = didCopy,
                              .displayID = result.displayID,
                              .baseResult = {}});
    if (save)
        m_services.cards.attachCaptureSave(std::move(save), result.id);
    m_services.trace.mark("CARD presented (" + result.id.toString(QUuid::WithoutBraces) + ")");
}

QCoro::Task<> CaptureFinisher::reportWhenOnDisk(CaptureOutcome outcome, std::shared_ptr<CaptureRun> run,
                                                std::shared_ptr<CaptureSave> save,
                                                std::optional<Wait<std::optional<QString>>> record)
{
    if (save) {
        SaveOutcome saved = co_await m_scope.reply<SaveOutcome>([&](auto done) { save->whenDone(done); });
        if (saved) {
            outcome.path = *saved;
        } else {
            outcome.kind = CaptureOutcome::Kind::failed;
            outcome.message = saved.error();
        }
    }
    if (record)
        outcome.historyPath = co_await *record;
    run->reply.give(std::move(outcome));
}

CaptureResult CaptureFinisher::keepInHistory(Pixels pixels)
{
    CaptureResult result = makeResult(std::move(pixels));
    if (m_services.history.isRecording())
        m_services.history.record(result, nullptr, std::make_shared<EncodedPng>(result.image), [](auto) {});
    return result;
}

} // namespace Kovrel
