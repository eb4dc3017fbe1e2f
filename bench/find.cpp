// find: a search in 2,000 lines against one pass that folds and scans the same text; and the time that putting
// fragments into reading order takes for each fragment and step of n log n. Ends with 1 when a bound is missed.

#include "bench/Samples.h"
#include "model/text/TextFolding.h"
#include "recognition/text/TextFind.h"
#include "recognition/text/TextLayout.h"

#include <cmath>
#include <cstdio>
#include <random>

using namespace Kovrel;

namespace {

constexpr int lineCount = 2000;
constexpr int rounds = 15;
constexpr double mostOfOnePass = 3;
// Memory gets slower on the way from 500 to 50,000 fragments; n squared would be 57.
constexpr double mostGrowth = 2;

QString sentence(const QStringList& words, std::mt19937& random)
{
    QStringList chosen;
    for (int i = 0; i < 9; ++i)
        chosen << words[qsizetype(random() % quint32(words.size()))];
    return chosen.join(' ');
}

std::vector<OCRLine> lines(const QStringList& words)
{
    std::mt19937 random(1);
    std::vector<OCRLine> all;
    for (int i = 0; i < lineCount; ++i)
        all.push_back(
            {.text = sentence(words, random), .boundingBox = {0.1, 1 - (i + 1.0) / lineCount, 0.8, 0.7 / lineCount}});
    return all;
}

int foldAndScan(const QString& query, const std::vector<OCRLine>& all)
{
    int count = 0;
    for (const OCRLine& line : all)
        count += TextFolding::comparable(line.text).contains(query);
    return count;
}

bool measureFind(const char* name, const QStringList& words, const QString& query)
{
    const auto all = lines(words);
    Bench::Samples find;
    Bench::Samples scan;
    size_t found = 0;
    volatile int seen = 0;
    for (int round = 0; round < rounds; ++round) {
        find.add(Bench::milliseconds([&] { found = TextFind::matches(query, all, lineCount).size(); }));
        scan.add(Bench::milliseconds([&] { seen = foldAndScan(query, all); }));
    }
    const double ratio = find.best() / scan.best();
    std::printf("%-28s %-12s %8d %10.3f %10.3f %6.2f\n", name, qUtf8Printable(query), int(found), find.best(),
                scan.best(), ratio);
    return ratio <= mostOfOnePass;
}

// Chapters below each other: a title, and fifty lines in two columns each.
std::vector<TextFragment> document(int count)
{
    std::vector<TextFragment> all;
    for (int i = 0; i < count; ++i) {
        const int chapter = i / 101;
        const int place = i % 101;
        const double top = chapter * 1100.0 + (place == 0 ? 0 : 40 + (place - 1) / 2 * 20);
        const double x = place > 0 && place % 2 == 0 ? 420 : 40;
        all.push_back(
            {.text = "text", .box = {x, -top - 14, place == 0 ? 700.0 : 340 - i % 7 * 5, 14}, .sourceIndex = i});
    }
    std::mt19937 random(2);
    std::ranges::shuffle(all, random);
    return all;
}

// Nothing but cells.
std::vector<TextFragment> table(int count)
{
    std::vector<TextFragment> all;
    for (int i = 0; i < count; ++i)
        all.push_back(
            {.text = "text", .box = {i % 10 * 100.0, i / 10 * -20.0, 40.0 + i % 13 * 3, 14}, .sourceIndex = i});
    return all;
}

bool measureLayout(const char* name, std::vector<TextFragment> (*page)(int))
{
    double first = 0;
    double last = 0;
    for (const int count : {500, 5000, 50'000}) {
        const auto fragments = page(count);
        Bench::Samples samples;
        for (int round = 0; round < rounds; ++round) {
            auto copy = fragments;
            samples.add(Bench::milliseconds([&] { TextLayout::emit(copy); }));
        }
        last = samples.best() * 1e6 / (count * std::log2(count));
        first = first > 0 ? first : last;
        std::printf("%-28s %8d %10.3f %10.2f\n", name, count, samples.best(), last);
    }
    return last / first <= mostGrowth;
}

} // namespace

int main()
{
    const QStringList plain{"capture", "window", "screen", "the", "settings", "of", "a", "display", "saved", "here"};
    const QStringList accented{"aufgenommen", "Fenster", "für", "Größe", "école", "où", "Übersicht", "naïve", "façade"};
    std::printf("%-28s %-12s %8s %10s %10s %6s\n", "2000 lines", "query", "matches", "find ms", "pass ms", "ratio");
    bool isGood = measureFind("ASCII", plain, "settings");
    isGood &= measureFind("ASCII, found nowhere", plain, "nowhere");
    isGood &= measureFind("ASCII, across lines", plain, "of a");
    isGood &= measureFind("accents", accented, "ubersicht");
    isGood &= measureFind("accents, across lines", accented, "fur grosse");
    std::printf("\n%-28s %8s %10s %10s\n", "reading order", "n", "ms", "ns/n log n");
    isGood &= measureLayout("chapters in two columns", document);
    isGood &= measureLayout("table of ten columns", table);
    return isGood ? 0 : 1;
}
