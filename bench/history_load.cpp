// history_load: loading an index of 200, 2,000 and 20,000 captures against a bare parse of the same file and a look
// whether each picture is there, and what a recording costs then. Ends with 1 when a bound is missed.

#include "bench/Samples.h"
#include "history/files/HistoryIndexFile.h"
#include "history/files/HistoryJson.h"
#include "tests/support/TempFolder.h"

#include <QFile>

#include <simdjson.h>

#include <cstdio>
#include <unistd.h>

using namespace Kovrel;
using Bench::milliseconds;
using Bench::Samples;

namespace {

constexpr double bound = 3; // of a bare parse with looks
constexpr int rounds = 15;

HistoryEntry capture(int number)
{
    const QString text = QString::number(number);
    return {.id = QUuid::createUuid(),
            .date = QDateTime(QDate(2024, 3, 5), QTime(9, 7, 3), Qt::UTC).addSecs(-60 * number),
            .mode = number % 3 ? "area" : "window",
            .pixelScale = 2,
            .savedPath = "/home/somebody/Pictures/Kovrel/Screenshot 2024-03-05 at 09.07.03 " + text + ".png",
            .title = number % 10 ? std::nullopt : std::optional("Title of capture " + text),
            .sourceBundleID = "org.example.Editor" + QString::number(number % 40),
            .sourceAppName = "Editor " + QString::number(number % 40),
            .pixelWidth = 1920,
            .pixelHeight = 1080 + number % 100};
}

HistoryState make(const HistoryFiles& files, int count)
{
    HistoryState state;
    for (int number = 0; number < count; ++number) {
        state.entries << capture(number);
        const QUuid id = state.entries.back().id;
        for (const QString& path : {files.base(id), files.thumbnail(id)}) [[maybe_unused]]
            const bool isMade = QFile(path).open(QIODevice::WriteOnly);
    }
    return state;
}

size_t readBare(const HistoryFiles& files)
{
    simdjson::dom::parser parser;
    size_t found = 0;
    const std::string folder = files.folder().toStdString() + '/';
    for (const simdjson::dom::element entry : parser.load(files.index().toStdString()).get_array())
        found += ::access((folder + std::string(std::string_view(entry["id"])) + ".png").c_str(), F_OK) == 0;
    return found;
}

bool compare(int count)
{
    const Testing::TempFolder folder;
    const HistoryFiles files(folder.path());
    HistoryState state = make(files, count);
    HistoryIndexFile(files).write({}, state, {}).value();
    Samples bare;
    Samples load;
    Samples record;
    Samples snapshot;
    for (int round = 0; round < rounds; ++round) {
        bare.add(milliseconds([&] { readBare(files); }));
        HistoryIndexFile file(files);
        load.add(milliseconds([&] { (void)file.load(); }));
        HistoryState next = state;
        snapshot.add(milliseconds([&] { next.insert(capture(-1)); }));
        record.add(milliseconds([&] { (void)file.write(state, next, {}); }));
        (void)file.write(next, state, {});
    }
    const double ratio = load.median() / bare.median();
    std::printf("%7d %12.2f %12.2f %8.2f %14.2f %14.2f\n", count, bare.median(), load.median(), ratio,
                snapshot.median(), record.median());
    return ratio <= bound;
}

} // namespace

int main()
{
    std::printf("   size      bare ms      load ms    ratio   main thread ms  recording ms\n");
    bool isGood = true;
    for (const int count : {200, 2000, 20000})
        isGood &= compare(count);
    return isGood ? 0 : 1;
}
