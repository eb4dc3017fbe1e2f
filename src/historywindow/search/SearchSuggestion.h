#pragma once

#include <QColor>
#include <QString>

#include <optional>

namespace Kovrel {

// A row below the search field.
struct SearchSuggestion {
    QString section; // what stands above the first row of each
    QString title;
    int count = 0; // of captures
    std::optional<QColor> color;
    bool isHighlighted = false; // what Enter takes
};

} // namespace Kovrel
