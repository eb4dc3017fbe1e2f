#include "app/features/HistoryFeature.h"

#include "app/commands/HistoryCommand.h"
#include "app/foundation/AppPaths.h"
#include "app/foundation/CommandJob.h"
#include "history/files/FittedPicture.h"
#include "hotkeys/HotkeySettings.h"
#include "platform/Displays.h"
#include "platform/Pointer.h"
#include "ports/CaptureDelivery.h"
#include "ports/Captures.h"
#include "ports/ProgramCommands.h"
#include "ports/TextReader.h"
#include "ports/Toasts.h"
#include "settings/pages/HistoryPage.h"

#include <QCoreApplication>

namespace Kovrel {

namespace {

constexpr double failureDwell = 6; // seconds

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(HistoryFeature)
};

ToastContent notRecorded(const QString& reason, const SaveOutcome& kept)
{
    const QString place = kept ? Texts::tr("kept as %1").arg(*kept) : kept.error().message;
    return {.message = Texts::tr("The capture could not be kept in the history"),
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
      m_indexer(foundation.loop, foundation.workers, ports, m_store, AppPaths::historyFolder()),
      m_dragFiles(foundation.loop, foundation.workers, foundation.preferences, m_store, AppPaths::temporaryFolder()),
      m_edits(foundation.loop, foundation.workers, m_store),
      m_scope(foundation.loop, foundation.workers)
{
    ports.history.offer(m_store);
    ports.files.offer(m_dragFiles);
    ports.edits.offer(m_edits);
    if (foundation.desktop)
        makeWindows();
}

void HistoryFeature::makeWindows()
{
    m_actions = std::make_unique<HistoryActions>(
        HistoryActions::Services{m_foundation.loop, m_foundation.workers, m_foundation.preferences, m_store, m_ports,
                                 m_foundation.desktop->filePanel(), m_foundation.desktop->fileManager()});
    const HistoryFiles files(AppPaths::historyFolder());
    m_windows = std::make_unique<HistoryWindows>(HistoryViewServices{
        .loop = m_foundation.loop,
        .workers = m_foundation.workers,
        .preferences = m_foundation.preferences,
        .store = m_store,
        .index = m_indexer.index(),
        .actions = *m_actions,
        .readThumbnail = [files](QUuid id, QSize bounds) { return FittedPicture::thumbnail(files, id, bounds); },
        .readPicture = [files](QUuid id, QSize bounds) { return FittedPicture::full(files, id, bounds); },
        .dragFile = [this](QUuid id) { return m_draggable.value(id); },
        .prepareDragFiles = [this](const QList<QUuid>& ids) { prepareDragFiles(ids); },
        .captureKeys = [this] { return captureKeys(); },
        .openSettings =
            [this] {
                const MenuEntry settings{.label = "", .action = "", .arguments = {"settings", "history"}};
                m_ports.commands.tell(&ProgramCommands::perform, settings, false);
            },
    });
    m_ports.chrome.push_back(m_windows.get());
}

QString HistoryFeature::captureKeys() const
{
    const auto keys = HotkeySettings::combo(m_foundation.preferences, CommandTable::entryOf(HotkeyAction::area));
    return keys ? keys->title() : QString();
}

void HistoryFeature::prepareDragFiles(const QList<QUuid>& ids)
{
    m_draggable.clear();
    for (const QUuid& id : ids)
        m_dragFiles.file(id, [this, id](const std::optional<QString>& path) {
            if (path)
                m_draggable.insert(id, *path);
        });
}

// A process of one command reads what there is when it is asked for it.
std::vector<CommandHandler> HistoryFeature::commands()
{
    std::vector<CommandHandler> handlers{
        {.command = "history", .run = [this](const Invocation& invocation, const Reply<CommandAnswer>& reply) {
             if (!m_foundation.desktop)
                 m_store.startReadOnly();
             m_store.whenLoaded([this, command = invocation.command, reply] {
                 m_indexer.whenLoaded([this, command, reply] { runHistory(command, reply); });
             });
         }}};
    if (m_windows)
        handlers.push_back(
            {.command = "recent", .run = [this](const Invocation& invocation, const Reply<CommandAnswer>& reply) {
                 showRecent(invocation.command, reply);
             }});
    return handlers;
}

void HistoryFeature::showRecent(const Command& command, const Reply<CommandAnswer>& reply)
{
    const auto show = [this, isStrip = command.has("strip")] {
        if (isStrip)
            showStrip();
        else
            m_windows->showWindow();
        m_indexer.load(); // behind what is seen
    };
    if (m_ports.captures)
        m_ports.captures->whenForegroundIsFree(show);
    else
        show();
    reply({});
}

void HistoryFeature::showStrip()
{
    m_foundation.desktop->pointer().position([this](const std::optional<PointerPosition>& pointer) {
        const DisplayList displays = m_foundation.desktop->displays().all();
        const Display* under = pointer ? displayWithID(displays, pointer->displayID) : nullptr;
        if (!displays.empty())
            m_windows->toggleStrip(under ? *under : displays.front());
    });
}

void HistoryFeature::runHistory(const Command& command, const Reply<CommandAnswer>& reply)
{
    if (!m_indexer.index().isLoaded())
        return reply({.exitCode = CommandLine::failed, .error = "there is not enough memory"});
    const HistoryCommand::History history{
        {m_store.entries(), m_store.lists()}, m_indexer.index().texts(), m_foundation.loop.date()};
    CommandJob::run(
        m_foundation, Lane::utility, [command, history] { return HistoryCommand::run(command, history); }, reply);
}

std::vector<SettingsPage> HistoryFeature::settingsPages()
{
    return {HistoryPage::make({.preferences = m_foundation.preferences,
                               .unsavedCount = [this] { return m_store.unsavedCount(); },
                               .surplusOf = [this](int retention) { return m_store.surplusOf(retention); }})};
}

void HistoryFeature::start(const Launch&)
{
    m_store.start();
}

void HistoryFeature::prewarmLater()
{
    m_store.backfillPixelSizes();
    m_indexer.load();
    m_indexer.scheduleWhenIdle();
    if (m_windows)
        m_windows->prewarm();
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
    m_indexer.prepareToEnd();
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
        co_return std::unexpected(RecognitionFailure{Texts::tr("This program can't read text.")});
    OCROutcome outcome = co_await m_scope.reply<OCROutcome>(
        [&](auto done) { m_ports.textReader->readText(image, qos, corrected, stop, done); });
    co_return outcome;
}

std::unique_ptr<Feature> makeHistoryFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<HistoryFeature>(foundation, ports);
}

} // namespace Kovrel
