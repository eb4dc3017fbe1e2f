#pragma once

#include "history/search/HistoryDateRange.h"

#include <QString>
#include <QUuid>

#include <optional>
#include <variant>

namespace Kovrel {

// One thing that captures can be chosen by besides what is typed.
struct HistoryFacet {
    struct Kind {
        QString mode; // the raw string of a CaptureMode
        bool operator==(const Kind&) const = default;
    };

    struct App {
        std::optional<QString> bundleID; // what an application is known by; its name only where it has none
        QString name;

        QString key() const { return bundleID.value_or(name); }

        bool operator==(const App& other) const { return key() == other.key(); }
    };

    struct List {
        QUuid id;
        bool operator==(const List&) const = default;
    };

    // The order is that of the sections in which facets are offered.
    using Value = std::variant<Kind, App, List, HistoryDateRange>;

    Value value;

    size_t section() const { return value.index(); }

    bool operator==(const HistoryFacet&) const = default;
};

} // namespace Kovrel
