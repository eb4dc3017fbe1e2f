#include "history/search/SearchTerm.h"

#include "history/search/SearchFields.h"
#include "history/text/ByteSearch.h"

#include <algorithm>
#include <ranges>

namespace Kovrel {

namespace {

using Where = SearchPlace::Where;

std::vector<std::string> charactersOf(const QString& term)
{
    std::vector<std::string> characters;
    for (const char32_t character : term.toStdU32String())
        characters.push_back(QString::fromUcs4(&character, 1).toStdString());
    return characters;
}

} // namespace

SearchTerm::SearchTerm(const QString& term)
    : m_bytes(term.toStdString()), m_characters(charactersOf(term)), m_grams(TextGrams::of(m_bytes))
{
}

// A longer term is nowhere where a shorter one was not, and not before it. The text comes first, since most that is
// typed stands there.
std::optional<SearchPlace> SearchTerm::findIn(std::string_view fields, const SearchableText& text, SearchPlace before,
                                              const SearchableText& next) const
{
    if (before.where == Where::text)
        if (const auto offset = findIn(text, before.offset, next))
            return SearchPlace{Where::text, std::uint32_t(*offset)};
    if (before.where != Where::scattered && ByteSearch::find(fields, m_bytes))
        return SearchPlace{Where::fields};
    return isScatteredIn(fields) ? std::optional(SearchPlace{Where::scattered}) : std::nullopt;
}

// What was found of a shorter term often goes on where it stands.
std::optional<size_t> SearchTerm::findIn(const SearchableText& text, size_t from, const SearchableText& next) const
{
    if (from > 0 && text.folded.substr(from).starts_with(m_bytes))
        return from;
    const bool isPossible = m_grams.empty() || TextGrams::mayHave(text.signature, m_grams);
    return isPossible ? ByteSearch::find(text.folded, m_bytes, from, next.folded) : std::nullopt;
}

bool SearchTerm::isScatteredIn(std::string_view fields) const
{
    if (m_characters.size() < 2)
        return false;
    return std::ranges::any_of(fields | std::views::split(SearchFields::separator),
                               [this](const auto& field) { return isScatteredInField(std::string_view(field)); });
}

bool SearchTerm::isScatteredInField(std::string_view field) const
{
    for (const std::string& character : m_characters) {
        const size_t place = field.find(character);
        if (place == std::string_view::npos)
            return false;
        field.remove_prefix(place + character.size());
    }
    return true;
}

} // namespace Kovrel
