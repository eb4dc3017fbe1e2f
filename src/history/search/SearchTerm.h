#pragma once

#include "history/search/SearchPlace.h"
#include "history/text/SearchableText.h"
#include "history/text/TextGrams.h"

#include <QString>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Kovrel {

// A term that is looked for, ready for many captures. Any thread.
class SearchTerm {
public:
    // As `TextFolding::comparable` makes it, not empty.
    explicit SearchTerm(const QString& term);

    const std::string& bytes() const { return m_bytes; }

    // Whether and where a capture has it. `before`: where a term was found that this one begins with. `next`: the text
    // that is searched after this one.
    std::optional<SearchPlace> findIn(std::string_view fields, const SearchableText& text, SearchPlace before = {},
                                      const SearchableText& next = {}) const;

    // Fetches what will be looked at first of a text that will be searched soon.
    void fetch(const SearchableText& text, SearchPlace before) const
    {
        __builtin_prefetch(text.folded.data() + before.offset);
        if (!m_grams.empty())
            __builtin_prefetch(text.signature.data() + TextGrams::bitOf(m_grams.front(), text.signature) / 8);
    }

private:
    std::optional<size_t> findIn(const SearchableText& text, size_t from, const SearchableText& next) const;
    bool isScatteredIn(std::string_view fields) const;
    bool isScatteredInField(std::string_view field) const;

    std::string m_bytes;
    std::vector<std::string> m_characters;
    std::vector<TextGrams::Gram> m_grams;
};

} // namespace Kovrel
