#pragma once

#include "history/search/HistoryFacetSuggestions.h"

namespace Kovrel {

// A search field that turns what is typed into chips: the text, the rows that are offered for it, the one that is
// highlighted, and the filter. Main thread.
class HistoryFilterSuggestions {
public:
    using Option = HistoryFacetOptions::Option;

    void setOptions(std::vector<Option> options);
    void setText(const QString& text);

    const QString& text() const { return m_text; }

    const HistoryFilter& filter() const { return m_filter; }

    void toggle(const HistoryFacet& facet);
    // The field is empty, and Backspace is pressed.
    void removeLast();

    const std::vector<Option>& rows() const { return m_rows; }

    // Among the rows; nothing until it is moved, so that Return is not taken from the search itself.
    std::optional<size_t> highlight() const { return m_highlight; }

    // Up or down by so many rows, stopping at the ends; from nothing to the first or the last.
    void moveHighlight(int by);
    // Makes a chip of the highlighted row and empties the text. False when none is highlighted.
    bool commitHighlight();

private:
    void update();

    std::vector<Option> m_options;
    QString m_text;
    HistoryFilter m_filter;
    std::vector<Option> m_rows;
    std::optional<size_t> m_highlight;
};

} // namespace Kovrel
