#include "history/search/HistoryDateRange.h"

#include <QTimeZone>

#include <limits>
#include <utility>

namespace Kovrel {

namespace {

using Kind = HistoryDateRange::Kind;

constexpr std::array words{std::pair{Kind::today, "today"}, std::pair{Kind::yesterday, "yesterday"},
                           std::pair{Kind::last7Days, "7d"}, std::pair{Kind::last30Days, "30d"}};
constexpr std::array calendar{std::pair{Kind::year, "yyyy"}, std::pair{Kind::month, "yyyy-MM"},
                              std::pair{Kind::day, "yyyy-MM-dd"}};

// Of the first day that does not belong to it; none where it has no end.
QDate dayBehind(Kind kind, QDate first)
{
    switch (kind) {
    case Kind::today:
    case Kind::yesterday:
    case Kind::day:
        return first.addDays(1);
    case Kind::month:
        return first.addMonths(1);
    case Kind::year:
        return first.addYears(1);
    case Kind::last7Days:
    case Kind::last30Days:
        break;
    }
    return {};
}

QDate firstDay(Kind kind, QDate today, QDate named)
{
    switch (kind) {
    case Kind::today:
        return today;
    case Kind::yesterday:
        return today.addDays(-1);
    case Kind::last7Days:
        return today.addDays(-6);
    case Kind::last30Days:
        return today.addDays(-29);
    case Kind::year:
    case Kind::month:
    case Kind::day:
        break;
    }
    return named;
}

} // namespace

std::optional<HistoryDateRange> HistoryDateRange::parse(const QString& text)
{
    for (const auto& [kind, word] : words)
        if (text == QLatin1StringView(word))
            return HistoryDateRange(kind);
    for (const auto& [kind, format] : calendar)
        if (const QDate first = QDate::fromString(text, QLatin1StringView(format)); first.isValid())
            return HistoryDateRange(kind, first);
    return std::nullopt;
}

HistoryDateRange::Span HistoryDateRange::span(const QDateTime& now) const
{
    const QTimeZone zone = now.timeZone();
    const QDate first = firstDay(m_kind, now.date(), m_first);
    const QDate behind = dayBehind(m_kind, first);
    return {first.startOfDay(zone).toMSecsSinceEpoch(),
            behind.isValid() ? behind.startOfDay(zone).toMSecsSinceEpoch() : std::numeric_limits<qint64>::max()};
}

} // namespace Kovrel
