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

    // Whether and where a capture has it. `before`: where a term was found that this one begins with.
    std::optional<SearchPlace> findIn(std::string_view fields, const SearchableText& text,
                                      SearchPlace before = {}) const;

    // What will be looked at first of a text that will be searched soon.
    void fetch(const SearchableText& text) const;

private:
    std::optional<size_t> findIn(const SearchableText& text, size_t from) const;
    bool isScatteredIn(std::string_view fields) const;
    bool isScatteredInField(std::string_view field) const;

    std::string m_bytes;
    std::vector<std::string> m_characters;
    std::vector<TextGrams::Gram> m_grams;
};

} // namespace Kovrel
