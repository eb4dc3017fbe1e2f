#pragma once

#include "history/text/HistoryTexts.h"
#include "history/text/SearchableText.h"
#include "model/HistoryEntry.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Kovrel {

// Captures as rows of what is searched in them. Any thread; it never changes.
class HistorySearchTable {
public:
    using Entries = std::shared_ptr<const std::vector<HistoryEntry>>;

    HistorySearchTable(Entries entries, HistoryTexts texts);

    bool isOf(const Entries& entries, const HistoryTexts& texts) const;

    std::uint32_t size() const { return std::uint32_t(m_rows.size()); }

    // As `SearchFields::of`.
    std::string_view fields(std::uint32_t row) const
    {
        const Row& found = m_rows[row];
        return std::string_view(m_fields).substr(found.fields, found.fieldsLength);
    }

    const SearchableText& text(std::uint32_t row) const { return m_rows[row].text; }

private:
    struct Row {
        size_t fields = 0; // where they begin
        size_t fieldsLength = 0;
        SearchableText text; // of `m_texts`
    };

    Entries m_entries;
    HistoryTexts m_texts;
    std::string m_fields; // of all rows
    std::vector<Row> m_rows;
};

} // namespace Kovrel
