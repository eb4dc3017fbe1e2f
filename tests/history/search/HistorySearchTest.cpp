#include "history/search/HistorySearch.h"

#include "history/search/HistorySearchEngine.h"
#include "model/text/TextFolding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace Kovrel {

using HistorySearch::parse;
using HistorySearch::subsequence;

namespace {

HistoryEntry capture(const QString& file, const QString& mode = "area", const QString& app = {},
                     const QString& bundle = {})
{
    HistoryEntry entry{.id = QUuid::createUuid(), .mode = mode};
    if (!file.isEmpty())
        entry.savedPath = "/home/somebody/" + file;
    if (!app.isEmpty())
        entry.sourceAppName = app;
    if (!bundle.isEmpty())
        entry.sourceBundleID = bundle;
    return entry;
}

bool isFound(const QString& query, const HistoryEntry& entry, const QString& text = {})
{
    const IndexedText indexed({{.text = text.section('\n', 0, 0)}, {.text = text.section('\n', 1)}});
    return !HistorySearch::narrow({entry}, parse(query), [&indexed](QUuid) { return &indexed; }).empty();
}

// The rule word by word, without any of the ways in which the program is quick.
bool isFoundNaively(const QString& term, const HistoryEntry& entry, const QString& text)
{
    QStringList fields;
    for (const auto& field : {entry.sourceAppName, entry.sourceBundleID,
                              entry.savedPath.transform([](const QString& path) { return path.section('/', -1); }),
                              HistorySearch::label(entry.mode)})
        if (field)
            fields << TextFolding::comparable(*field);
    for (const QString& field : fields)
        if (field.contains(term) || (term.size() >= 2 && subsequence(term, field)))
            return true;
    return TextFolding::comparable(text).contains(term);
}

struct RandomHistory {
    std::mt19937 random;
    QStringList texts;
    std::vector<HistoryEntry> entries;
    HistoryTexts indexed;

    QString word(int most)
    {
        static const QString letters = QStringLiteral("aabbeéÉstßЖж1-漢𝔘");
        QString result;
        for (int left = 1 + int(random() % quint32(most)); left > 0; --left)
            result += letters[qsizetype(random() % quint32(letters.size() - 2))];
        return random() % 8 == 0 ? result + letters.last(2) : result;
    }

    QString line()
    {
        QStringList words;
        for (size_t left = random() % 40; left > 0; --left)
            words << word(6);
        return words.join(' ');
    }

    explicit RandomHistory(unsigned seed) : random(seed)
    {
        for (int count = 0; count < 60; ++count) {
            entries.push_back(capture(word(7) + ".png", count % 3 ? "window" : "unheard of", word(9), word(9)));
            const QStringList lines{word(3) + line(), word(3) + line()};
            texts << lines.join(' ');
            if (count % 5 == 0)
                texts.back().clear(); // nobody has looked at it
            else
                indexed.insert(entries.back().id, std::make_shared<IndexedText>(
                                                      std::vector<OCRLine>{{.text = lines[0]}, {.text = lines[1]}}));
        }
    }

    std::vector<uint32_t> naively(const HistorySearch::Query& query) const
    {
        std::vector<uint32_t> rows;
        for (size_t row = 0; row < entries.size(); ++row)
            if (std::ranges::all_of(query.terms, [&](const QString& term) {
                    return isFoundNaively(term, entries[row], texts[qsizetype(row)]);
                }))
                rows.push_back(uint32_t(row));
        return rows;
    }
};

} // namespace

TEST(HistorySearchTest, QueriesAreFoldedWords)
{
    const struct {
        QString text;
        std::vector<QString> terms;
    } cases[] = {
        {"Ré  Sumé", {"re", "sume"}}, {"", {}},
        {" \t\n\u00A0", {}},          {"ÉCOLE\u2003İzmir\u0085x", {"ecole", "izmir", "x"}},
        {"e\u0301a", {"ea"}},
    };

    for (const auto& one : cases)
        EXPECT_EQ(parse(one.text).terms, one.terms) << one.text.toStdString();
}

TEST(HistorySearchTest, TermsAreFoundByTheRules)
{
    const HistoryEntry shot = capture("Screenshot 2024.png");

    const struct {
        QString query;
        HistoryEntry entry;
        QString text;
        bool isFound;
    } cases[] = {
        {"scr", shot, "", true},
        {"sst", shot, "", true},
        {"home", shot, "", false}, // only the file's name counts
        {"st", capture("", "unheard of"), "s t", false},
        {"st", capture("", "unheard of"), "first", true},
        {"ft", capture("", "unheard of"), "first", false},
        {"a", capture("", "unheard of", "b"), "", false},
        {"full screen", capture("", "fullScreen"), "", true},
        {"fullscreen", capture("", "fullScreen"), "", true}, // scattered
        {"extracted", capture("", "ocrRegion"), "", true},
        {"self-t", capture("", "timed"), "", true},
        {"unheard", capture("", "unheard of"), "", false},
        {"org.gnome", capture("", "area", "Files", "org.gnome.Nautilus"), "", true},
        {"filesorg", capture("", "area", "Files", "org.gnome.Nautilus"), "", false}, // in two fields
        {"CAFE", capture("", "area"), "le café", true},
        {"area café", capture("", "area"), "le café", true},
        {"area tea", capture("", "area"), "le café", false},
        {"ab", capture("", "unheard of"), "a\nb", false}, // lines are words apart
        {"", shot, "", true},
        {"мир", capture("", "unheard of"), "МИРОВОЙ", true},
    };

    for (const auto& one : cases)
        EXPECT_EQ(isFound(one.query, one.entry, one.text), one.isFound) << one.query.toStdString();
}

TEST(HistorySearchTest, SubsequencesAreScored)
{
    const struct {
        QString query;
        QString text;
        std::optional<int> score;
    } cases[] = {
        {"ab", "ab", 13},
        {"ac", "abc", 12},
        {"ba", "ab", {}},
        {"aa", "a", {}},
        {"", "abc", 8},
        {"sf", "self-file", 3 + 1 + 7},
        {"f", "-f", 3 + 8},
        {"abcdefghijklmn", "abcdefghijklmn", 40},
        {"abcdef", "abcdef", 3 + 2 + 3 + 4 + 4 + 4 + 8},
        {"a", "b" + QString(80, 'x') + "a", 1},
    };

    for (const auto& one : cases)
        EXPECT_EQ(subsequence(one.query, one.text), one.score) << one.query.toStdString();
}

// Random texts of few letters against the definition, worked out on the places of the letters.
TEST(HistorySearchTest, SubsequencesOfRandomTextsAreScoredAsDefined)
{
    std::mt19937 random(5);
    const QString letters = "ab- ";
    const auto word = [&](quint32 most) {
        QString text;
        for (quint32 left = random() % most; left > 0; --left)
            text += letters[qsizetype(random() % 4)];
        return text;
    };
    for (int round = 0; round < 5000; ++round) {
        const QString query = word(6);
        const QString text = word(40);
        std::vector<qsizetype> places{-1};
        for (const QChar letter : query)
            places.push_back(places.back() == -2                             ? -2
                             : text.indexOf(letter, places.back() + 1) == -1 ? -2
                                                                             : text.indexOf(letter, places.back() + 1));
        std::optional<int> expected;
        if (places.back() != -2) {
            int run = 1;
            expected = 8 - std::min(int(text.size()) / 8, 8);
            for (size_t at = 1; at < places.size(); ++at) {
                const bool follows = at > 1 && places[at] == places[at - 1] + 1;
                run = follows ? run + 1 : 1;
                const bool startsWord = places[at] == 0 || !text[places[at] - 1].isLetterOrNumber();
                *expected += follows ? std::min(run, 4) : startsWord ? 3 : 1;
            }
            expected = std::min(*expected, 40);
        }
        ASSERT_EQ(subsequence(query, text), expected) << query.toStdString() << " in " << text.toStdString();
    }
}

TEST(HistorySearchTest, RandomHistoriesAreNarrowedAsTheRuleSays)
{
    for (unsigned seed = 0; seed < 20; ++seed) {
        RandomHistory history(seed);
        const auto entries = std::make_shared<const std::vector<HistoryEntry>>(history.entries);
        HistorySearchEngine engine;
        for (int round = 0; round < 30; ++round) {
            // Letter by letter, as it is typed, and some back again.
            const QString typed = history.word(5) + (round % 2 ? " " + history.word(4) : QString());
            for (qsizetype length = 1; length <= typed.size(); ++length) {
                if (typed[length - 1].isHighSurrogate())
                    continue; // nobody types half a letter
                const auto query = parse(typed.first(length));
                const auto expected = history.naively(query);
                std::vector<HistoryEntry> narrowed;
                for (const uint32_t row : expected)
                    narrowed.push_back(history.entries[row]);
                const auto textOf = [&](QUuid id) { return history.indexed.value(id).get(); };
                ASSERT_EQ(HistorySearch::narrow(history.entries, query, textOf), narrowed) << typed.toStdString();
                ASSERT_EQ(engine.find({entries, history.indexed, query, {}, {}}, {}), expected) << typed.toStdString();
            }
        }
    }
}

// So many that two threads share them.
TEST(HistorySearchTest, ALargeHistoryIsNarrowedInOrder)
{
    const auto entries = std::make_shared<std::vector<HistoryEntry>>();
    HistorySearchEngine::Rows expected;
    for (uint32_t row = 0; row < 9001; ++row) {
        entries->push_back(capture(row % 7 ? "xyz" : "axb", "unheard of"));
        if (row % 7 == 0)
            expected.push_back(row);
    }
    HistorySearchEngine engine;
    EXPECT_EQ(engine.find({entries, {}, parse("a"), {}, {}}, {}), expected);
    EXPECT_EQ(engine.find({entries, {}, parse("ab"), {}, {}}, {}), expected);
    EXPECT_EQ(engine.find({entries, {}, parse("abz"), {}, {}}, {}), HistorySearchEngine::Rows());
}

TEST(HistorySearchTest, AStoppedSearchLeavesNothingBehind)
{
    RandomHistory history(1);
    const auto entries = std::make_shared<const std::vector<HistoryEntry>>(history.entries);
    HistorySearchEngine engine;
    std::stop_source stopped;
    stopped.request_stop();
    const HistorySearchEngine::Request request{entries, history.indexed, parse("b"), {}, {}};
    EXPECT_EQ(engine.find(request, stopped.get_token()), std::nullopt);
    EXPECT_EQ(engine.find(request, {}), history.naively(parse("b")));
}

} // namespace Kovrel
