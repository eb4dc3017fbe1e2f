#include "app/features/FeedbackFeature.h"

#include "app/foundation/AppPaths.h"
#include "app/foundation/RecentLog.h"
#include "commandline/CommandLine.h"
#include "platform/Clipboard.h"
#include "platform/Displays.h"
#include "platform/FilePanel.h"
#include "platform/FilePrograms.h"
#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/PrivateFolder.h"
#include "platform/processes/LoadedLibraries.h"
#include "platform/session/DesktopSession.h"
#include "ports/Captures.h"

#include <QDir>
#include <QGuiApplication>
#include <QSysInfo>

namespace Kovrel {

namespace {

// Those by which faults differ.
const QStringList libraries{"libQt6Core", "libQt6Gui",    "libQt6Widgets", "libQt6DBus", "libqxcb",    "libxcb.so",
                            "libc.so",    "libstdc++",    "libspng",       "libdeflate", "libjpeg",    "libturbojpeg",
                            "libheif",    "libtesseract", "libZXing",      "libzbar",    "libpulse.so"};

QString sessionType()
{
    switch (DesktopSession::kind()) {
    case DesktopSession::Kind::x11:
        return "x11";
    case DesktopSession::Kind::wayland:
        return "wayland";
    case DesktopSession::Kind::none:
        return "no";
    }
    return {};
}

// What blocks on the disk.
QString completed(FeedbackReport::Facts facts)
{
    facts.system = QSysInfo::prettyProductName() + ", " + QSysInfo::kernelType() + ' ' + QSysInfo::kernelVersion() +
                   ", " + QSysInfo::currentCpuArchitecture();
    facts.libraries << LoadedLibraries::named(libraries);
    return FeedbackReport::text(facts, PersonalTraces::ofThisUser());
}

} // namespace

void FeedbackFeature::start(const Launch& launch)
{
    m_version = launch.version + " (build " + launch.build + ')';
}

std::vector<CommandHandler> FeedbackFeature::commands()
{
    return {{.command = "feedback", .run = [this](const Invocation& invocation, const Reply<CommandAnswer>& reply) {
                 run(invocation, reply);
             }}};
}

void FeedbackFeature::run(const Invocation& invocation, const Reply<CommandAnswer>& reply)
{
    const auto& options = invocation.command.options;
    const auto output = options.find("output");
    if (output == options.end()) {
        report([this](const QString& text) { show(text); });
        reply({});
        return;
    }
    report([this, reply, path = QString::fromStdString(output->second)](const QString& text) {
        write(path, text, [reply, path](const Written& written) {
            reply(written ? CommandAnswer{.output = path + '\n'}
                          : CommandAnswer{.exitCode = CommandLine::failed, .error = written.error()});
        });
    });
}

// --- What is known

void FeedbackFeature::report(Reply<QString> reply)
{
    const auto job = [facts = factsOfThisThread()] { return completed(facts); };
    replyFromWorker<QString>(m_foundation.loop, m_foundation.workers, Lane::utility,
                             Guarded::orElse(job, QString("Kovrel " + m_version)), m_lifeline.guard(std::move(reply)));
}

FeedbackReport::Facts FeedbackFeature::factsOfThisThread() const
{
    const Displays& displays = m_foundation.desktop->displays();
    return {.version = m_version,
            .system = {},
            .desktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP"),
            .sessionType = sessionType(),
            .isComposited = displays.isComposited(),
            .displays = displays.all(),
            .libraries = {QString("Qt ") + qVersion() + " on " + QGuiApplication::platformName()},
            .settings = FeedbackReport::changedSettings(m_foundation.defaults),
            .log = RecentLog::shared().lines()};
}

// --- The window

void FeedbackFeature::show(const QString& report)
{
    const auto present = [this, report] {
        if (!m_window)
            m_window = std::make_unique<FeedbackWindow>(services());
        m_window->present(report);
    };
    if (m_ports.captures)
        m_ports.captures->whenForegroundIsFree(present);
    else
        present();
}

FeedbackWindow::Services FeedbackFeature::services()
{
    FeedbackWindow::Services services{
        .save = [this](const QString& text, QWindow* parent) { save(text, parent); },
        .copy = [this](const QString& text) { m_foundation.desktop->clipboard().putText(text); },
        .mail = {}};
    if (m_foundation.desktop->programs().canMail())
        services.mail = [this](const QString& text) { mail(text); };
    return services;
}

void FeedbackFeature::write(const QString& path, const QString& text, Reply<Written> reply)
{
    replyFromWorker<Written>(
        m_foundation.loop, m_foundation.workers, Lane::utility,
        [path, bytes = text.toUtf8()]() noexcept -> Written {
            const auto written = AtomicFile::write(path, bytes, AtomicFile::Access::onlyOwner);
            return written ? Written() : std::unexpected(written.error().message);
        },
        m_lifeline.guard(std::move(reply)));
}

void FeedbackFeature::save(const QString& text, QWindow* parent)
{
    const auto told = [this](const QString& path, const Written& written) {
        m_window->showNotice(
            written ? tr("Saved as %1.").arg(path) : tr("It could not be saved: %1").arg(written.error()), !written);
    };
    m_foundation.desktop->filePanel().ask(
        QDir::home().filePath(tr("Kovrel feedback") + ".txt"), parent,
        m_lifeline.guard([this, text, told](const std::optional<QString>& path) {
            if (path)
                write(*path, text, [told, path = *path](const Written& written) { told(path, written); });
        }));
}

// As a file, since not every mail program takes a text.
void FeedbackFeature::mail(const QString& text)
{
    const QString folder = AppPaths::temporaryFolder();
    m_foundation.workers.submit(Lane::utility, [folder] { PrivateFolder::make(folder); });
    const QString path = folder + "/Kovrel feedback.txt";
    write(path, text, [this, path](const Written& written) {
        if (written)
            m_foundation.desktop->programs().mail(path);
        else
            m_window->showNotice(tr("It could not be handed to the mail program: %1").arg(written.error()), true);
    });
}

std::unique_ptr<Feature> makeFeedbackFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<FeedbackFeature>(foundation, ports);
}

} // namespace Kovrel
