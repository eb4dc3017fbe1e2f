#include "history/search/HistoryFacetOptions.h"

#include "history/search/HistoryFilter.h"
#include "history/search/HistorySearch.h"

#include <QCoreApplication>

#include <algorithm>

namespace Kovrel {

namespace {

using Options = std::vector<HistoryFacetOptions::Option>;

Options kinds(const std::vector<HistoryEntry>& entries)
{
    Options options;
    for (const auto& [mode, raw] : RawStrings<CaptureMode>::table) {
        const QString name = QString::fromLatin1(raw);
        const auto count = std::ranges::count(entries, name, &HistoryEntry::mode);
        options.push_back({{HistoryFacet::Kind{name}}, *HistorySearch::label(name), int(count), {}});
    }
    return options;
}

std::optional<HistoryFacet::App> appOf(const HistoryEntry& entry)
{
    if (!entry.sourceBundleID && !entry.sourceAppName)
        return std::nullopt;
    return HistoryFacet::App{entry.sourceBundleID, entry.sourceAppName.value_or(*entry.sourceBundleID)};
}

// Called as the newest capture says.
Options apps(const std::vector<HistoryEntry>& entries)
{
    Options options;
    QHash<QString, size_t> places;
    for (const HistoryEntry& entry : entries) {
        const auto app = appOf(entry);
        if (!app)
            continue;
        const auto place = places.constFind(app->key());
        if (place != places.cend()) {
            ++options[*place].count;
            continue;
        }
        places.insert(app->key(), options.size());
        options.push_back({{*app}, app->name, 1, {}});
    }
    std::ranges::sort(options, {}, [](const auto& option) { return std::pair(-option.count, option.title); });
    return options;
}

Options filed(const std::vector<HistoryList>& lists)
{
    Options options;
    for (const HistoryList& list : lists)
        options.push_back({{HistoryFacet::List{list.id}}, list.name, int(list.entryIDs.size()), list.colorHex});
    return options;
}

QString title(HistoryDateRange::Kind range)
{
    switch (range) {
    case HistoryDateRange::Kind::today:
        return QCoreApplication::translate("Kovrel::HistoryFacetOptions", "Today");
    case HistoryDateRange::Kind::yesterday:
        return QCoreApplication::translate("Kovrel::HistoryFacetOptions", "Yesterday");
    case HistoryDateRange::Kind::last7Days:
        return QCoreApplication::translate("Kovrel::HistoryFacetOptions", "Last 7 Days");
    default:
        return QCoreApplication::translate("Kovrel::HistoryFacetOptions", "Last 30 Days");
    }
}

Options days(const std::vector<HistoryEntry>& entries, const QDateTime& now)
{
    Options options;
    for (const auto kind : HistoryDateRange::relative) {
        const HistoryDateRange range(kind);
        const auto isInside = [span = range.span(now)](const HistoryEntry& entry) { return span.contains(entry.date); };
        options.push_back({{range}, title(kind), int(std::ranges::count_if(entries, isInside)), {}});
    }
    return options;
}

} // namespace

std::vector<HistoryFacetOptions::Option> HistoryFacetOptions::of(const std::vector<HistoryEntry>& entries,
                                                                 const std::vector<HistoryList>& lists,
                                                                 const QDateTime& now)
{
    Options all;
    for (const Options& section : {kinds(entries), apps(entries), filed(lists), days(entries, now)})
        std::ranges::copy_if(section, std::back_inserter(all), [](const Option& option) {
            return option.count > 0 || std::holds_alternative<HistoryFacet::List>(option.facet.value);
        });
    return all;
}

} // namespace Kovrel
