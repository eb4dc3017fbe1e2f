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

// What is cheap and likely comes first; which of the three it is makes no difference to whether it is found. A longer
// term is nowhere where a shorter one was not, and not before it.
std::optional<SearchPlace> SearchTerm::findIn(std::string_view fields, const SearchableText& text,
                                              SearchPlace before) const
{
    if (before.where == Where::fields && ByteSearch::find(fields, m_bytes))
        return SearchPlace{Where::fields};
    if (before.where != Where::scattered)
        if (const auto offset = findIn(text, before.offset))
            return SearchPlace{Where::text, std::uint32_t(*offset)};
    return isScatteredIn(fields) ? std::optional(SearchPlace{Where::scattered}) : std::nullopt;
}

std::optional<size_t> SearchTerm::findIn(const SearchableText& text, size_t from) const
{
    return TextGrams::mayHave(text.signature, m_grams) ? ByteSearch::find(text.folded, m_bytes, from) : std::nullopt;
}

void SearchTerm::fetch(const SearchableText& text) const
{
    __builtin_prefetch(m_grams.empty() ? text.folded.data() : text.signature.data());
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
