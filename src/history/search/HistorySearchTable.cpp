#include "history/search/HistorySearchTable.h"

#include "history/search/SearchFields.h"

namespace Kovrel {

HistorySearchTable::HistorySearchTable(Entries entries, HistoryTexts texts)
    : m_entries(std::move(entries)), m_texts(std::move(texts))
{
    m_rows.reserve(m_entries->size());
    for (const HistoryEntry& entry : *m_entries) {
        const std::string fields = SearchFields::of(entry);
        const auto text = m_texts.constFind(entry.id);
        m_rows.push_back(
            {m_fields.size(), fields.size(), text == m_texts.cend() ? SearchableText() : (*text)->searchable()});
        m_fields += fields;
    }
}

bool HistorySearchTable::isOf(const Entries& entries, const HistoryTexts& texts) const
{
    return m_entries == entries && m_texts.isSharedWith(texts);
}

} // namespace Kovrel
