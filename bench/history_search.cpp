// history_search FOLDER...: searching a history of 200, 2,000 and 20,000 captures, each with 2.7 kB of text made of the
// lines of all *.txt files below the folders: recognised screens and pages, with names and numbers of its own. What is
// typed letter by letter is searched in the program's way and beside it by memmem, entry by entry up to the first hit,
// by SQLite's FTS5 with trigrams and by `rg -l` over the sidecars, all in folded texts. Ends with 1 when one finds
// other captures than the others, or a bound is missed.

#include "bench/Samples.h"
#include "history/search/HistorySearchEngine.h"
#include "history/search/HistoryTextIndex.h"
#include "history/search/SearchFields.h"
#include "history/search/SearchTerm.h"
#include "history/text/HistoryTextFile.h"
#include "platform/files/AtomicFile.h"
#include "recognition/CaptureOCRStore.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>

#include <sqlite3.h>

#include <cstdio>
#include <cstring>
#include <malloc.h>
#include <random>
#include <set>

using namespace Kovrel;

namespace {

constexpr int bytesOfText = 2700;
constexpr int rounds = 9;               // of which the best counts, since the machine is not alone
constexpr double mostOfFirstLetter = 2; // of memmem
constexpr double mostOfFurtherLetter = 0.5;
constexpr double unnoticed = 0.01;  // milliseconds in which nothing is compared
constexpr double mostMemory = 1.5;  // of folded texts and boxes
constexpr double mostBesideFts = 4; // milliseconds, where its own time is less

// What is typed; every length is searched on the way.
const QStringList typed{"the", "window", "installation", "screen", "sett", "file manager", "qzx", "xylophonist"};
// The lengths that are measured beside the others.
constexpr std::array lengths{1, 2, 3, 6, 12};

// --- Captures

QStringList linesBelow(const QStringList& folders)
{
    QStringList lines;
    for (const QString& folder : folders)
        for (QDirIterator files(folder, {"*.txt"}, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly))
                for (const QString& line : QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts))
                    lines << line.simplified();
        }
    return lines;
}

class Captures {
public:
    Captures(QStringList lines, unsigned seed) : m_lines(std::move(lines)), m_random(seed) {}

    std::vector<OCRLine> text()
    {
        std::vector<OCRLine> lines;
        qsizetype left = bytesOfText;
        while (left > 0)
            for (qsizetype run = 2 + below(8), at = below(m_lines.size()); run > 0 && left > 0; --run, ++at) {
                lines.push_back(line(varied(m_lines[at % m_lines.size()]), lines.size()));
                left -= lines.back().text.toUtf8().size() + 1;
            }
        return lines;
    }

    HistoryEntry entry(int index)
    {
        static const QStringList apps{"Firefox", "Files", "Terminal", "Calculator", "Spyder", "Writer", "Mail"};
        static const std::array modes{"area", "window", "fullScreen", "area", "timed"};
        const QString& app = apps[below(apps.size())];
        const QDateTime date = QDateTime::fromMSecsSinceEpoch(1'790'000'000'000 - index * 600'000LL, Qt::UTC);
        HistoryEntry entry{.id = QUuid::createUuid(), .date = date, .mode = modes[size_t(below(5))]};
        entry.sourceAppName = app;
        entry.sourceBundleID = "org.example." + app;
        if (below(3) == 0)
            entry.savedPath = "/home/somebody/Pictures/Kovrel " + date.toString("yyyy-MM-dd HH.mm.ss") + ".png";
        return entry;
    }

private:
    qsizetype below(qsizetype end) { return qsizetype(m_random() % quint64(end)); }

    // Invented words of syllables, amounts, times and numbers in the place of every sixth word.
    QString varied(const QString& line)
    {
        QStringList words = line.split(' ');
        for (QString& word : words)
            if (below(6) == 0)
                word = invented();
        return words.join(' ');
    }

    QString invented()
    {
        static const QStringList syllables{"ka", "ren", "mo",  "li", "sto", "vel",
                                           "an", "der", "bru", "ni", "tas", "ego"};
        switch (below(4)) {
        case 0:
            return QString::number(below(1'000'000));
        case 1:
            return QString("%1:%2").arg(below(24)).arg(below(60), 2, 10, QChar('0'));
        case 2:
            return QString::number(double(below(1'000'000)) / 100, 'f', 2);
        default:
            QString name;
            for (qsizetype left = 2 + below(3); left > 0; --left)
                name += syllables[below(syllables.size())];
            return name.replace(0, 1, name[0].toUpper());
        }
    }

    OCRLine line(const QString& text, size_t index)
    {
        const auto decimals = [this](qsizetype end) { return double(below(end)) / 1e5; };
        return {.text = text,
                .confidence = 1,
                .boundingBox = {decimals(50'000), 1 - 0.01 * double(index % 100), decimals(50'000),
                                0.00012 + decimals(1200)}};
    }

    QStringList m_lines;
    std::mt19937_64 m_random;
};

// --- Those that are compared. Each finds, in folded texts, the captures that have all words.

using Rows = std::set<size_t>;

std::vector<std::string> words(const QString& query)
{
    std::vector<std::string> all;
    for (const QString& term : HistorySearch::parse(query).terms)
        all.push_back(term.toStdString());
    return all;
}

size_t memmemAll(const std::vector<std::string>& texts, const std::vector<std::string>& terms, std::vector<char>& found)
{
    size_t count = 0;
    for (size_t row = 0; row < texts.size(); ++row) {
        const std::string& text = texts[row];
        found[row] = char(std::ranges::all_of(terms, [&text](const std::string& term) {
            return memmem(text.data(), text.size(), term.data(), term.size()) != nullptr;
        }));
        count += size_t(found[row]);
    }
    return count;
}

class Fts {
public:
    explicit Fts(const std::vector<std::string>& texts)
    {
        sqlite3_open(":memory:", &m_database);
        run("create virtual table captures using fts5(text, tokenize='trigram', detail=full)");
        run("begin");
        sqlite3_stmt* insert = nullptr;
        sqlite3_prepare_v2(m_database, "insert into captures(rowid, text) values (?, ?)", -1, &insert, nullptr);
        for (size_t row = 0; row < texts.size(); ++row) {
            sqlite3_bind_int64(insert, 1, qint64(row) + 1);
            sqlite3_bind_text(insert, 2, texts[row].data(), int(texts[row].size()), SQLITE_STATIC);
            sqlite3_step(insert);
            sqlite3_reset(insert);
        }
        sqlite3_finalize(insert);
        run("commit");
        run("insert into captures(captures) values ('optimize')");
        sqlite3_prepare_v2(m_database, "select rowid from captures where captures match ?", -1, &m_find, nullptr);
    }

    ~Fts()
    {
        sqlite3_finalize(m_find);
        sqlite3_close(m_database);
    }

    Fts(const Fts&) = delete;
    Fts& operator=(const Fts&) = delete;

    std::vector<size_t> find(const std::vector<std::string>& terms) const
    {
        std::string match;
        for (const std::string& term : terms)
            match += (match.empty() ? "\"" : " AND \"") + term + '"';
        std::vector<size_t> rows;
        sqlite3_bind_text(m_find, 1, match.data(), int(match.size()), SQLITE_TRANSIENT);
        while (sqlite3_step(m_find) == SQLITE_ROW)
            rows.push_back(size_t(sqlite3_column_int64(m_find, 0)) - 1);
        sqlite3_reset(m_find);
        return rows;
    }

private:
    void run(const char* statement) { sqlite3_exec(m_database, statement, nullptr, nullptr, nullptr); }

    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_find = nullptr;
};

// Over the sidecars, whose texts are folded; "0000123_ocr.json" is row 123. Two words: the files of the first are
// searched for the second.
QStringList ripgrep(QStringList paths, const std::vector<std::string>& terms)
{
    for (const std::string& term : terms) {
        QProcess process;
        process.start("sh", {"-c", "exec xargs -0 rg -l -F -- \"$0\"", QString::fromStdString(term)});
        process.write(paths.join(QChar(0)).toUtf8());
        process.closeWriteChannel();
        process.waitForFinished(-1);
        paths = QString::fromUtf8(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    }
    return paths;
}

QStringList ripgrepFolder(const QString& folder, const std::vector<std::string>& terms)
{
    QProcess process;
    process.start("rg", {"-l", "-F", "--", QString::fromStdString(terms.front()), folder});
    process.waitForFinished(-1);
    const QStringList paths = QString::fromUtf8(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    return terms.size() == 1 || paths.isEmpty() ? paths : ripgrep(paths, {terms.begin() + 1, terms.end()});
}

// --- Memory

// Without what files are behind: the code that reads a history is half a megabyte, however small the history.
double ownMegabytes()
{
    malloc_trim(0);
    QFile file("/proc/self/statm");
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> pages = file.readAll().split(' '); // all, resident, with a file behind, ...
    return (pages[1].toDouble() - pages[2].toDouble()) * 4096 / 1e6;
}

// --- Measuring

struct History {
    Testing::TempFolder folder;
    Testing::TempFolder folded; // a file of folded text for each sidecar, without the keys of JSON
    std::shared_ptr<std::vector<HistoryEntry>> entries = std::make_shared<std::vector<HistoryEntry>>();
    std::vector<std::string> texts; // folded
    double bytes = 0;               // of folded texts and boxes

    // The sidecars are older than the file, as they are wherever nothing has just been read.
    History(int count, const QStringList& lines)
    {
        Captures captures(lines, 1);
        HistoryTexts index;
        for (int row = 0; row < count; ++row) {
            entries->push_back(captures.entry(row));
            const auto text = captures.text();
            const auto indexed = std::make_shared<const IndexedText>(text);
            index.insert(entries->back().id, indexed);
            texts.emplace_back(indexed->searchable().folded);
            bytes += double(texts.back().size() + text.size() * 4 * sizeof(float));
            write(CaptureOCRStore::sidecarURLs(entries->back().id, folder.path()).front(), text);
            AtomicFile::write(folded / QString("%1_ocr").arg(row, 7, 10, QChar('0')),
                              QByteArray::fromStdString(texts.back()), AtomicFile::Access::onlyOwner)
                .value();
        }
        HistoryTextFile::write(folder.path(), index);
    }

    static void write(const QString& path, const std::vector<OCRLine>& lines)
    {
        OCRFile file;
        QStringList texts;
        for (const OCRLine& line : lines)
            texts << line.text;
        file.text = OCRFile::TextPart{{1920, 1080}, true, {.fullText = texts.join('\n'), .lines = lines}};
        AtomicFile::write(path, file.encoded(), AtomicFile::Access::onlyOwner).value();
    }
};

struct Program {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    HistoryTextIndex index{loop, workers};

    void settle()
    {
        do
            loop.runPosted();
        while (workers.runAll() > 0);
    }
};

HistoryFilter windowsOfFirefox()
{
    HistoryFilter filter;
    filter.toggle({HistoryFacet::Kind{"window"}});
    filter.toggle({HistoryFacet::App{"org.example.Firefox", "Firefox"}});
    filter.toggle({HistoryDateRange(HistoryDateRange::Kind::last30Days)});
    return filter;
}

class Comparison {
public:
    Comparison(const History& history, const HistoryTexts& texts)
        : m_history(history), m_fts(history.texts), m_request{history.entries, texts, {}, {}, {}}
    {
    }

    bool isGood() const { return m_isGood; }

    // Types it letter by letter, and says what each new letter costs.
    void measure(const QString& text)
    {
        std::vector<Keystroke> keystrokes;
        for (qsizetype length = 1; length <= text.size(); ++length)
            if (!text.first(length).endsWith(' '))
                keystrokes.push_back({text.first(length),
                                      words(text.first(length)),
                                      {},
                                      {},
                                      {},
                                      std::vector<char>(m_history.texts.size())});
        // By turns, so that both find the processor's caches alike.
        for (int round = 0; round < rounds; ++round) {
            HistorySearchEngine fresh;
            find(fresh, "another word");
            for (Keystroke& keystroke : keystrokes) {
                keystroke.engine.add(Bench::milliseconds([&] { keystroke.rows = find(fresh, keystroke.text); }));
                keystroke.bare.add(
                    Bench::milliseconds([&] { memmemAll(m_history.texts, keystroke.terms, keystroke.found); }));
            }
        }
        for (const Keystroke& keystroke : keystrokes)
            if (m_measured.insert(keystroke.text).second)
                compare(keystroke);
    }

private:
    struct Keystroke {
        QString text;
        std::vector<std::string> terms;
        Bench::Samples engine;
        HistorySearchEngine::Rows rows;
        Bench::Samples bare;
        std::vector<char> found; // by memmem
    };

    void compare(const Keystroke& keystroke)
    {
        const auto& [text, terms, engine, rows, bare, found] = keystroke;
        Rows expected;
        for (size_t row = 0; row < found.size(); ++row)
            if (found[row])
                expected.insert(row);
        check("kovrel", text, withoutFields(rows, terms), withoutFields(expected, terms));
        const double most = text.size() == 1 ? mostOfFirstLetter : mostOfFurtherLetter;
        const double ratio = engine.best() / bare.best();
        const bool isGood = ratio <= most || engine.best() <= unnoticed;
        std::printf("%7zu  %-14s %6zu %9.3f %9.3f %6.2f%s", m_history.texts.size(), qUtf8Printable('"' + text + '"'),
                    expected.size(), engine.best(), bare.best(), ratio, isGood ? " " : "!");
        m_isGood &= isGood;
        if (isMeasuredBeside(text))
            measureBeside(text, terms, expected, engine.best());
        std::printf("\n");
    }

    // Only some lengths, since a search on disk takes its time; of two words, both whole.
    static bool isMeasuredBeside(const QString& text)
    {
        return text.contains(' ') ? typed.contains(text) : std::ranges::find(lengths, text.size()) != lengths.end();
    }

    HistorySearchEngine::Rows find(HistorySearchEngine& engine, const QString& text)
    {
        m_request.query = HistorySearch::parse(text);
        return *engine.find(m_request, {});
    }

    void measureBeside(const QString& text, const std::vector<std::string>& terms, const Rows& expected, double own)
    {
        Bench::Samples ripgrepTime;
        QStringList paths;
        for (int round = 0; round < 3; ++round)
            ripgrepTime.add(Bench::milliseconds([&] { paths = ripgrepFolder(m_history.folded.path(), terms); }));
        Rows rows;
        for (const QString& path : paths)
            rows.insert(path.section('/', -1).first(7).toULongLong());
        check("rg", text, rows, expected);
        std::printf(" %9.1f%s", ripgrepTime.best(), own > ripgrepTime.best() ? "!" : " ");
        m_isGood &= own <= ripgrepTime.best();
        if (std::ranges::any_of(terms, [](const std::string& term) { return term.size() < 3; }))
            return;
        Bench::Samples fts;
        std::vector<size_t> matches;
        for (int round = 0; round < rounds; ++round)
            fts.add(Bench::milliseconds([&] { matches = m_fts.find(terms); }));
        check("FTS5", text, Rows(matches.begin(), matches.end()), expected);
        const bool isAhead = own <= std::max(fts.best(), mostBesideFts);
        std::printf(" %9.3f%s", fts.best(), isAhead ? " " : "!");
        m_isGood &= isAhead;
    }

    // What a name or a kind has of a term, or has scattered, is found by the program alone.
    Rows withoutFields(const auto& rows, const std::vector<std::string>& terms) const
    {
        Rows left;
        for (const size_t row : rows) {
            const std::string fields = SearchFields::of((*m_history.entries)[row]);
            const auto isInFields = [&fields](const std::string& term) {
                return SearchTerm(QString::fromStdString(term)).findIn(fields, {}).has_value();
            };
            if (std::ranges::none_of(terms, isInFields))
                left.insert(row);
        }
        return left;
    }

    void check(const char* who, const QString& text, const Rows& found, const Rows& expected)
    {
        if (found == expected)
            return;
        std::printf("%s finds %zu instead of %zu of \"%s\"\n", who, found.size(), expected.size(),
                    qUtf8Printable(text));
        m_isGood = false;
    }

    const History& m_history;
    Fts m_fts;
    HistorySearchEngine::Request m_request;
    std::set<QString> m_measured;
    bool m_isGood = true;
};

// In a process of its own, whose memory nothing else has been in: what a loaded index takes beyond an empty one, in
// megabytes.
int printMemory(const QString& folder)
{
    const Testing::TempFolder nothing;
    Program empty;
    empty.index.attach(nothing.path());
    empty.settle();
    const double before = ownMegabytes();
    auto program = std::make_unique<Program>();
    program->index.attach(folder);
    program->settle();
    std::printf("%f\n", ownMegabytes() - before);
    return 0;
}

double memoryOf(const QString& folder)
{
    QProcess process;
    process.start(QFile::symLinkTarget("/proc/self/exe"), {"--memory", folder});
    process.waitForFinished(-1);
    return process.readAllStandardOutput().toDouble();
}

bool measureIndex(const History& history)
{
    auto program = std::make_unique<Program>();
    program->index.attach(history.folder.path());
    const double load = Bench::milliseconds([&] { program->settle(); });
    const double memory = memoryOf(history.folder.path());
    const QUuid id = history.entries->front().id;
    const std::vector<OCRLine> lines = program->index.findLines(id);
    Bench::Samples set;
    for (int round = 0; round < rounds; ++round)
        set.add(Bench::milliseconds([&] { program->index.set(lines, id); }));
    const double save = Bench::milliseconds([&] {
        program->index.writeLast(history.folder.path());
        program->settle();
    });
    HistorySearchEngine engine;
    HistorySearchEngine::Request request{history.entries, program->index.texts(), HistorySearch::parse("qzx"), {}, {}};
    const double table = Bench::milliseconds([&] { engine.find(request, {}); });
    request.query = {};
    Bench::Samples facets;
    request.context.now = history.entries->front().date;
    for (int round = 0; round < rounds; ++round) {
        request.filter = round % 2 ? HistoryFilter() : windowsOfFirefox();
        facets.add(Bench::milliseconds([&] { engine.find(request, {}); }));
    }
    const double ratio = memory * 1e6 / history.bytes;
    const bool isGood = ratio <= mostMemory;
    std::printf("%7zu %9.1f %9.3f %9.1f %9.1f %9.3f %9.1f %9.1f %6.2f%s\n", history.entries->size(), load, set.median(),
                save, table, facets.median(), history.bytes / 1e6, memory, ratio, isGood ? "" : "!");
    return isGood;
}

bool compare(const History& history)
{
    Program program;
    program.index.attach(history.folder.path());
    program.settle();
    Comparison comparison(history, program.index.texts());
    for (const QString& text : typed)
        comparison.measure(text);
    return comparison.isGood();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && argv[1] == std::string_view("--memory"))
        return printMemory(argv[2]);
    QStringList folders;
    for (int index = 1; index < argc; ++index)
        folders << QString::fromLocal8Bit(argv[index]);
    const QStringList lines = linesBelow(folders);
    if (lines.isEmpty()) {
        std::fprintf(stderr, "history_search FOLDER...: no *.txt file below these folders\n");
        return 2;
    }
    std::printf("%d lines of text\n%7s %9s %9s %9s %9s %9s %9s %9s %6s\n", int(lines.size()), "entries", "load ms",
                "set ms", "save ms", "table ms", "facet ms", "text MB", "memory MB", "ratio");
    bool isGood = true;
    std::vector<std::unique_ptr<History>> histories;
    for (const int count : {200, 2000, 20'000}) {
        histories.push_back(std::make_unique<History>(count, lines));
        isGood &= measureIndex(*histories.back());
    }
    std::printf("\n%7s  %-14s %6s %9s %9s %6s  %9s %9s\n", "entries", "typed", "found", "kovrel ms", "memmem ms",
                "ratio", "rg -l ms", "FTS5 ms");
    for (const auto& history : histories)
        isGood &= compare(*history);
    return isGood ? 0 : 1;
}
