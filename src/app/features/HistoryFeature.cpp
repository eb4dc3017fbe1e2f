#include "app/features/HistoryFeature.h"

#include "app/commands/HistoryCommand.h"
#include "app/foundation/AppPaths.h"
#include "app/foundation/CommandJob.h"
#include "ports/CaptureDelivery.h"
#include "ports/TextReader.h"
#include "ports/Toasts.h"

#include <QCoreApplication>

namespace Kovrel {

namespace {

constexpr double failureDwell = 6; // seconds

QString tr(const char* text)
{
    return QCoreApplication::translate("HistoryFeature", text);
}

ToastContent notRecorded(const QString& reason, const SaveOutcome& kept)
{
    const QString place = kept ? tr("kept as %1").arg(*kept) : kept.error().message;
    return {.message = tr("The capture could not be kept in the history"),
            .subtitle = reason + "; " + place,
            .icon = "exclamationmark.triangle",
            .dwell = failureDwell};
}

} // namespace

HistoryFeature::HistoryFeature(Foundation& foundation, Ports& ports)
    : m_foundation(foundation),
      m_ports(ports),
      m_ocr(
          foundation.loop, foundation.workers, AppPaths::historyFolder(),
          [this](QUuid id) { return m_store.status(id); },
          [this](QImage image, QualityOfService qos, bool corrected, std::stop_token stop) {
              return recognize(std::move(image), qos, corrected, std::move(stop));
          }),
      m_store({.loop = foundation.loop,
               .workers = foundation.workers,
               .preferences = foundation.preferences,
               .ocr = m_ocr,
               .folder = AppPaths::historyFolder(),
               .rescue = [this](CaptureResult result, std::shared_ptr<EncodedPng> png,
                                const QString& reason) { rescue(std::move(result), std::move(png), reason); }}),
      m_scope(foundation.loop, foundation.workers)
{
    ports.history.offer(m_store);
}

// A process of one command reads what there is when it is asked for it.
std::vector<CommandHandler> HistoryFeature::commands()
{
    return {{.command = "history", .run = [this](const Invocation& invocation, const Reply<CommandAnswer>& reply) {
                 if (!m_foundation.desktop)
                     m_store.startReadOnly();
                 m_store.whenLoaded([this, command = invocation.command, reply] { runHistory(command, reply); });
             }}};
}

void HistoryFeature::runHistory(const Command& command, const Reply<CommandAnswer>& reply)
{
    const HistoryState history{m_store.entries(), m_store.lists()};
    CommandJob::run(
        m_foundation, Lane::utility, [command, history] { return HistoryCommand::run(command, history); }, reply);
}

std::vector<SettingsPage> HistoryFeature::settingsPages() const
{
    using namespace Settings;
    return {{.title = tr("History"), .keys = {historyEnabled.name, historyRetentionCount.name, historyAllName.name}}};
}

void HistoryFeature::start(const Launch&)
{
    m_store.start();
}

void HistoryFeature::prewarmLater()
{
    m_store.backfillPixelSizes();
}

void HistoryFeature::finishPending(std::chrono::milliseconds deadline, std::function<void()> done)
{
    const auto once = [done = std::make_shared<std::function<void()>>(std::move(done))] {
        if (*done)
            std::exchange(*done, nullptr)();
    };
    m_foundation.loop.after(deadline, once);
    m_store.whenSettled(once);
}

void HistoryFeature::prepareToEnd()
{
    m_store.prepareToEnd();
}

// It goes where captures are saved, and that looks for another place if it has to.
void HistoryFeature::rescue(CaptureResult result, std::shared_ptr<EncodedPng> png, const QString& reason)
{
    if (!m_ports.delivery)
        return;
    const auto save = m_ports.delivery->save(result, std::nullopt, std::move(png));
    save->whenDone([this, reason, display = result.displayID](const SaveOutcome& kept) {
        m_ports.toasts.tell(&Toasts::present, notRecorded(reason, kept), display, true);
    });
}

QCoro::Task<OCROutcome> HistoryFeature::recognize(QImage image, QualityOfService qos, bool corrected,
                                                  std::stop_token stop)
{
    if (!m_ports.textReader)
        co_return std::unexpected(RecognitionFailure{tr("This program can't read text.")});
    OCROutcome outcome = co_await m_scope.reply<OCROutcome>(
        [&](auto done) { m_ports.textReader->readText(image, qos, corrected, stop, done); });
    co_return outcome;
}

std::unique_ptr<Feature> makeHistoryFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<HistoryFeature>(foundation, ports);
}

} // namespace Kovrel
