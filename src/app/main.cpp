#include "app/Application.h"
#include "app/CommandRunner.h"
#include "app/LibraryMessages.h"
#include "app/StartDeadline.h"
#include "app/SturdyApplication.h"
#include "app/Translations.h"
#include "commandline/CommandLine.h"
#include "commandline/CommandTable.h"
#include "platform/Guarded.h"
#include "platform/session/DesktopSession.h"

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
    if (CommandTable::find(command.name)->runs != CommandSpec::Runs::drawing)
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

// Runs a command that needs no display, with the features that need none.
int runWithoutInstance(const Command& command, int& argc, char** argv)
{
    [[maybe_unused]] const std::unique_ptr<QCoreApplication> application = applicationFor(command, argc, argv);
    Foundation foundation(Foundation::Kind::command);
    if (::isatty(STDERR_FILENO))
        foundation.progress = showProgress;
    Preferences::registerDefaults(foundation.defaults);
    Ports ports;
    const auto features = FeatureList::make(FeatureList::all(), foundation, ports);
    CommandRunner commands;
    for (const auto& feature : features)
        commands.add(feature->commands());
    std::optional<CommandAnswer> result;
    commands.run(Invocation{.command = command}, [&result](const CommandAnswer& answer) {
        result = answer;
        QCoreApplication::quit();
    });
    if (!result)
        QCoreApplication::exec();
    // The work is done. Libraries may still wait for threads that they could not have.
    std::_Exit(report(result.value_or(CommandAnswer{.exitCode = CommandLine::failed})));
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

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv)
{
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    auto application = std::make_unique<SturdyApplication>(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setApplicationName("Kovrel");
    QApplication::setDesktopFileName("com.kovrel.Kovrel");
    Translations::install(*application);
    return application;
}

// Why there is no display to start on, in one line.
QString displayFault()
{
    if (DesktopSession::kind() == DesktopSession::Kind::none)
        return "there is no display to capture: DISPLAY is not set";
    return "the display " + qEnvironmentVariable("DISPLAY", qEnvironmentVariable("WAYLAND_DISPLAY")) +
           " can't be reached";
}

// Until it is asked to end; with a command, until that is done and what it leaves on the screen is closed.
int runUntilEnd(Application& kovrel, const Command& command)
{
    int exitCode = CommandLine::done;
    bool isEnding = false;
    const auto end = [&isEnding] {
        isEnding = true;
        QCoreApplication::quit();
    };
    if (command.name != "start")
        kovrel.run(toTexts(command.arguments()), [&](const CommandAnswer& answer) {
            exitCode = report(answer);
            if (exitCode == CommandLine::done && CommandLine::leavesWindow(command))
                QObject::connect(qApp, &QGuiApplication::lastWindowClosed, qApp, end);
            else
                end();
        });
    if (!isEnding)
        QApplication::exec();
    return exitCode;
}

int runInstance(const Command& command, int& argc, char** argv)
{
    const bool isInBackground = command.name != "start" || command.has("background");
    std::optional<StartDeadline> deadline(std::in_place);
    if (!DesktopSession::obstacle().isEmpty())
        complain(DesktopSession::obstacle());
    auto display = DesktopSession::reachDisplay();
    if (!display)
        return complain(displayFault());
    const auto application = makeApplication(argc, argv);
    Application kovrel({.files = {}, .isLoginItem = isInBackground, .build = KOVREL_BUILD, .version = KOVREL_VERSION},
                       FeatureList::all());
    const InstanceBus::Claim claim = kovrel.claimInstance();
    display.reset();
    deadline.reset();
    if (claim == InstanceBus::Claim::taken) {
        if (!isInBackground)
            InstanceBus::activateOwner();
        return CommandLine::done;
    }
    if (claim == InstanceBus::Claim::noBus)
        complain("there is no session bus; commands from other processes can't reach this one");
    kovrel.start();
    moveLogToJournal();
    return runUntilEnd(kovrel, command);
}

int run(const Command& command)
{
    int argc = 1;
    char name[] = "kovrel";
    char* argv[] = {name, nullptr};
    try {
        return CommandLine::runsWithoutInstance(command) ? runWithoutInstance(command, argc, argv)
                                                         : runInstance(command, argc, argv);
    } catch (...) {
        return complain(Guarded::reason());
    }
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
    LibraryMessages::silence();
    return run(*command);
}
