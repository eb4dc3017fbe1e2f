#include "history/search/HistorySearch.h"

#include "history/search/SearchFields.h"
#include "history/search/SearchTerm.h"
#include "model/text/TextFolding.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <iterator>

namespace Kovrel {

namespace {

constexpr int mostForRun = 4;
constexpr int forWordStart = 3;
constexpr int mostForShortness = 8;
constexpr int mostScore = 40;

constexpr std::array labels{
    std::pair{CaptureMode::area, QT_TRANSLATE_NOOP("HistorySearch", "Area")},
    std::pair{CaptureMode::window, QT_TRANSLATE_NOOP("HistorySearch", "Window")},
    std::pair{CaptureMode::fullScreen, QT_TRANSLATE_NOOP("HistorySearch", "Full Screen")},
    std::pair{CaptureMode::lastArea, QT_TRANSLATE_NOOP("HistorySearch", "Last Area")},
    std::pair{CaptureMode::ocrRegion, QT_TRANSLATE_NOOP("HistorySearch", "Extracted Text")},
    std::pair{CaptureMode::timed, QT_TRANSLATE_NOOP("HistorySearch", "Self-Timer")},
};

bool isWordStart(const std::u32string& text, size_t place)
{
    return place == 0 || !QChar::isLetterOrNumber(text[place - 1]);
}

std::vector<SearchTerm> termsOf(const HistorySearch::Query& query)
{
    return {query.terms.begin(), query.terms.end()};
}

} // namespace

HistorySearch::Query HistorySearch::parse(const QString& text)
{
    const QStringList terms = TextFolding::comparable(text).simplified().split(u' ', Qt::SkipEmptyParts);
    return {{terms.begin(), terms.end()}};
}

std::vector<HistoryEntry> HistorySearch::narrow(const std::vector<HistoryEntry>& entries, const Query& query,
                                                const TextOf& text)
{
    std::vector<HistoryEntry> found;
    std::ranges::copy_if(entries, std::back_inserter(found),
                         [&text, terms = termsOf(query)](const HistoryEntry& entry) {
                             const std::string fields = SearchFields::of(entry);
                             const IndexedText* indexed = text(entry.id);
                             const SearchableText words = indexed ? indexed->searchable() : SearchableText();
                             return std::ranges::all_of(
                                 terms, [&](const SearchTerm& term) { return term.findIn(fields, words).has_value(); });
                         });
    return found;
}

std::optional<int> HistorySearch::subsequence(const QString& query, const QString& text)
{
    const std::u32string characters = text.toStdU32String();
    int score = 0;
    int run = 0;
    size_t next = 0;
    for (const char32_t wanted : query.toStdU32String()) {
        const size_t place = characters.find(wanted, next);
        if (place == std::u32string::npos)
            return std::nullopt;
        const bool goesOn = run > 0 && place == next;
        run = goesOn ? run + 1 : 1;
        score += goesOn ? std::min(run, mostForRun) : isWordStart(characters, place) ? forWordStart : 1;
        next = place + 1;
    }
    const int shortness = mostForShortness - std::min(int(characters.size()) / 8, mostForShortness);
    return std::min(score + shortness, mostScore);
}

std::optional<QString> HistorySearch::label(const QString& mode)
{
    const auto known = fromRawString<CaptureMode>(mode);
    for (const auto& [candidate, text] : labels)
        if (known == candidate)
            return QCoreApplication::translate("HistorySearch", text);
    return std::nullopt;
}

} // namespace Kovrel
