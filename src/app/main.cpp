#include "app/AppPaths.h"
#include "app/Application.h"
#include "app/commands/AnnotateCommand.h"
#include "app/commands/CodesCommand.h"
#include "app/commands/PreferencesCommand.h"
#include "app/commands/TextCommand.h"
#include "platform/desktop/KeychainTokenStore.h"
#include "platform/plugins/PluginCodeReader.h"
#include "platform/plugins/PluginTextRecogniser.h"
#include "platform/session/DesktopSession.h"
#include "recognition/text/PatientRecogniser.h"

#include <QApplication>

#include <csignal>
#include <cstdio>
#include <malloc.h>
#include <unistd.h>

namespace Kovrel {

namespace {

// 4K images lie just under glibc's growing threshold and would stay resident when freed.
constexpr int largestHeapBlock = 1 << 20;

int complain(const QString& line)
{
    std::fprintf(stderr, "kovrel: %s\n", qUtf8Printable(line));
    return CommandLine::failed;
}

int report(const CommandAnswer& answer)
{
    if (std::fputs(qUtf8Printable(answer.output), stdout) < 0 || std::fflush(stdout) != 0)
        return complain("the output can't be written");
    if (!answer.error.isEmpty())
        complain(answer.error);
    return answer.exitCode;
}

// A line on a terminal that goes when the work is done.
void showProgress(double share)
{
    if (share < 1)
        std::fprintf(stderr, "\rReading the text: %d %%", int(share * 100));
    else
        std::fputs("\r\033[K", stderr);
}

QStringList toTexts(const std::vector<std::string>& texts)
{
    QStringList result;
    for (const std::string& text : texts)
        result << QString::fromStdString(text);
    return result;
}

// Labels need fonts, which come with a platform; the one without a display looks for no server.
std::unique_ptr<QCoreApplication> applicationFor(const Command& command, int& argc, char** argv)
{
    if (command.name != "annotate")
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

// Commands that need neither a display nor the rest of the program.
int runWithoutInstance(const Command& command, int& argc, char** argv)
{
    const std::unique_ptr<QCoreApplication> application = applicationFor(command, argc, argv);
    if (command.name == "codes")
        return report(CodesCommand::run(command));
    UserDefaults defaults(AppPaths::preferencesFile());
    Preferences::registerDefaults(defaults);
    const Preferences preferences(defaults);
    if (command.name == "annotate")
        return report(AnnotateCommand::run(command, AnnotateCommand::settings(preferences)));
    if (command.name == "preferences")
        return report(PreferencesCommand::run(defaults, toTexts(command.operands)));
    QtMainLoop loop;
    ThreadWorkers workers;
    FileTokenStore tokens(loop, workers, AppPaths::dataFolder());
    KeychainTokenStore secrets(loop, std::chrono::seconds(5));
    Account account(tokens, secrets);
    VisionOCREngine recognition(
        loop, workers, std::make_unique<PatientRecogniser>([] { return std::make_unique<PluginTextRecogniser>(); }),
        [&preferences] { return preferences.get(Settings::textLanguages); });
    const PluginCodeReader codeReader;
    QRCodeDetector codes(loop, workers, codeReader);
    TextCommand text(loop, workers, recognition, codes, ::isatty(STDERR_FILENO) ? &showProgress : nullptr);
    CommandAnswer result;
    const auto finish = [&](const CommandAnswer& answer) {
        result = answer;
        QCoreApplication::quit();
    };
    if (command.name == "text")
        text.run(command, 0, finish);
    else
        CommandRunner::runAccountCommand(command, account, defaults, finish);
    QCoreApplication::exec();
    return report(result);
}

// What was said while starting went to whoever started us; from now on it belongs into the journal.
void moveLogToJournal()
{
    bool isNumber = false;
    const int journal = qEnvironmentVariable("KOVREL_LOG_FD").toInt(&isNumber);
    if (!isNumber)
        return;
    dup2(journal, STDERR_FILENO);
    close(journal);
    qunsetenv("KOVREL_LOG_FD");
}

int runInstance(const Command& command, int& argc, char** argv)
{
    if (DesktopSession::kind() == DesktopSession::Kind::none)
        return complain("there is no display to capture: DISPLAY is not set");
    if (!DesktopSession::obstacle().isEmpty())
        complain(DesktopSession::obstacle());
    if (!DesktopSession::canShowWindows())
        return complain("the display " + qEnvironmentVariable("DISPLAY", qEnvironmentVariable("WAYLAND_DISPLAY")) +
                        " can't be reached");
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setApplicationName("Kovrel");
    QApplication::setDesktopFileName("com.kovrel.Kovrel");

    int exitCode = CommandLine::done;
    Application kovrel(
        {.files = {}, .isLoginItem = command.has("background"), .build = KOVREL_BUILD, .version = KOVREL_VERSION});
    const InstanceBus::Claim claim = kovrel.claimInstance();
    if (claim == InstanceBus::Claim::taken) {
        if (!command.has("background"))
            InstanceBus::activateOwner();
        return CommandLine::done;
    }
    if (claim == InstanceBus::Claim::noBus)
        complain("there is no session bus; commands from other processes can't reach this one");
    kovrel.start();
    moveLogToJournal();
    if (command.name != "start")
        kovrel.run(toTexts(command.arguments()), [&exitCode](const CommandAnswer& answer) {
            exitCode = report(answer);
            QCoreApplication::quit();
        });
    QApplication::exec();
    return exitCode;
}

} // namespace

} // namespace Kovrel

// What the thin front calls: the command's arguments, without the program's name.
extern "C" __attribute__((visibility("default"))) int kovrelMain(const char* const* arguments, int count)
{
    using namespace Kovrel;
    mallopt(M_MMAP_THRESHOLD, largestHeapBlock);
    // A reader that went away and a file that grew too large are errors of a write, not the process's end.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    const auto command = CommandLine::parse({arguments, arguments + count}, "/");
    if (!command)
        return complain(QString::fromStdString(command.error()));
    int argc = 1;
    char name[] = "kovrel";
    char* argv[] = {name, nullptr};
    return CommandLine::runsWithoutInstance(*command) ? runWithoutInstance(*command, argc, argv)
                                                      : runInstance(*command, argc, argv);
}
