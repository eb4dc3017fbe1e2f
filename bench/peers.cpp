// bench_peers KOVREL FOLDER ROUNDS: what a whole screenshot costs, from the command to the PNG file in FOLDER, for
// Kovrel and its peers in turns. DISPLAY, the session bus and the running programs are the caller's; bench/peers makes
// them. Ends with 1 when Kovrel is slower or its files are larger than it wants to be.

#include "bench/BenchPictures.h"
#include "bench/Samples.h"
#include "tests/support/PaintedScreen.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QThread>

#include <cstdio>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Kovrel;

namespace {

constexpr unsigned long settlingMilliseconds = 300;
constexpr int patienceMilliseconds = 10'000;

struct Contender {
    QString name;
    QStringList command;
    Bench::Samples milliseconds = {};
    qint64 bytes = 0;
};

struct Bound {
    double time;
    double size;
};

[[noreturn]] void giveUp(const QString& reason)
{
    std::fprintf(stderr, "bench_peers: %s\n", qUtf8Printable(reason));
    std::exit(2);
}

// Runs a program to its end with nothing in between that costs time of its own.
void runToEnd(const QStringList& command)
{
    QList<QByteArray> texts;
    for (const QString& text : command)
        texts << text.toLocal8Bit();
    std::vector<char*> arguments;
    for (QByteArray& text : texts)
        arguments.push_back(text.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int output : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&actions, output, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    int status = 0;
    if (posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) != 0)
        giveUp(command.front() + " can't be run");
    waitpid(child, &status, 0);
    posix_spawn_file_actions_destroy(&actions);
    if (status != 0)
        giveUp(command.join(' ') + " failed");
}

bool isWholePng(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.seek(file.size() - 8) && file.read(4) == "IEND";
}

// The one file in the folder: some programs end before they have written it.
qint64 waitForFile(const QDir& folder)
{
    for (int waited = 0; waited < patienceMilliseconds; ++waited) {
        const QFileInfoList files = folder.entryInfoList(QDir::Files);
        if (files.size() == 1 && isWholePng(files.front().filePath()))
            return files.front().size();
        QThread::msleep(1);
    }
    giveUp("no picture was written");
}

void emptyFolder(QDir folder)
{
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden))
        folder.remove(name);
}

// The first round only warms up.
void measure(std::vector<Contender>& contenders, const QDir& folder, int rounds)
{
    for (int round = -1; round < rounds; ++round) {
        for (Contender& contender : contenders) {
            emptyFolder(folder);
            QElapsedTimer timer;
            timer.start();
            runToEnd(contender.command);
            contender.bytes = waitForFile(folder);
            if (round >= 0)
                contender.milliseconds.add(double(timer.nsecsElapsed()) / 1e6);
        }
    }
}

void measureCommand(const char* name, const QStringList& command, int rounds)
{
    Bench::Samples milliseconds;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        runToEnd(command);
        milliseconds.add(double(timer.nsecsElapsed()) / 1e6);
    }
    std::printf("%-48s %9.2f %9.2f\n", name, milliseconds.best(), milliseconds.median());
}

// Kovrel is the first of the contenders.
bool printRatios(const std::vector<Contender>& contenders, Bound bound)
{
    double time = HUGE_VAL;
    qint64 bytes = std::numeric_limits<qint64>::max();
    for (size_t peer = 1; peer < contenders.size(); ++peer) {
        time = qMin(time, contenders[peer].milliseconds.median());
        bytes = qMin(bytes, contenders[peer].bytes);
    }
    const double timeRatio = contenders[0].milliseconds.median() / time;
    const double sizeRatio = double(contenders[0].bytes) / double(bytes);
    const bool isFast = timeRatio <= bound.time;
    const bool isSmall = sizeRatio <= bound.size;
    std::printf("%-20s time %.3f of the fastest (%.2f: %s), size %.4f of the smallest (%.2f: %s)\n", "", timeRatio,
                bound.time, isFast ? "holds" : "MISSED", sizeRatio, bound.size, isSmall ? "holds" : "MISSED");
    return isFast && isSmall;
}

bool compare(const QString& picture, std::vector<Contender> contenders, const QDir& folder, int rounds)
{
    measure(contenders, folder, rounds);
    for (const Contender& contender : contenders)
        std::printf("%-20s %-27s %9.1f %9.1f %11lld\n", qUtf8Printable(picture), qUtf8Printable(contender.name),
                    contender.milliseconds.best(), contender.milliseconds.median(), qlonglong(contender.bytes));
    return printRatios(contenders, picture == "photograph" ? Bound{0.5, 1.05} : Bound{0.3, 1.0});
}

} // namespace

int main(int argc, char** argv)
{
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    qunsetenv("QT_QPA_PLATFORM"); // for the programs that are run
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 4)
        giveUp("usage: bench_peers KOVREL FOLDER ROUNDS");
    const QString& kovrel = arguments[1];
    const QDir folder(arguments[2]);
    const int rounds = qMax(1, arguments[3].toInt());
    const std::vector<Contender> contenders{
        {"kovrel", {kovrel, "capture", "fullScreen", "--wait"}},
        {"scrot", {"scrot", folder.filePath("scrot.png")}},
        {"maim", {"maim", folder.filePath("maim.png")}},
        {"flameshot", {"flameshot", "full", "-p", folder.filePath("flameshot.png")}},
    };

    Testing::PaintedScreen screen(display);
    screen.movePointer({3839, 2159});
    std::printf("%-48s %9s %9s %11s\n", "3840 x 2160", "best ms", "median ms", "bytes");
    bool isGood = true;
    for (const Bench::Picture& picture : Bench::pictures()) {
        screen.setRootPicture(picture.image);
        screen.roundTrip();
        QThread::msleep(settlingMilliseconds);
        isGood &= compare(picture.name, contenders, folder, rounds);
    }
    measureCommand("kovrel preferences get jpegQuality", {kovrel, "preferences", "get", "jpegQuality"}, 10 * rounds);
    measureCommand("an empty program", {QGuiApplication::applicationDirPath() + "/bench_empty"}, 10 * rounds);
    return isGood ? 0 : 1;
}
