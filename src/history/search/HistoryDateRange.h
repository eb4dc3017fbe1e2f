#pragma once

#include <QDateTime>
#include <QString>

#include <array>
#include <optional>

namespace Kovrel {

// A stretch of days, as people name it: counted from today, or a year, a month or a day of the calendar. Days begin and
// end by the clock of whoever asks. Stateless; any thread.
class HistoryDateRange {
public:
    enum class Kind { today, yesterday, last7Days, last30Days, year, month, day };

    // Those that are offered, in this order.
    static constexpr std::array relative{Kind::today, Kind::yesterday, Kind::last7Days, Kind::last30Days};

    // Instants in milliseconds since 1970, from the first to before the last.
    struct Span {
        qint64 from = 0;
        qint64 until = 0;

        bool contains(const QDateTime& date) const
        {
            const qint64 instant = date.toMSecsSinceEpoch();
            return instant >= from && instant < until;
        }
    };

    explicit HistoryDateRange(Kind kind, QDate first = {}) : m_kind(kind), m_first(first) {}

    // "today", "yesterday", "7d", "30d", "2026", "2026-11" or "2026-11-21"; nothing for any other text.
    static std::optional<HistoryDateRange> parse(const QString& text);

    Kind kind() const { return m_kind; }

    // The last 7 and 30 days have no end, so that a clock that was set back hides nothing.
    Span span(const QDateTime& now) const;

    bool operator==(const HistoryDateRange&) const = default;

private:
    Kind m_kind;
    QDate m_first; // of a year, a month or a day
};

} // namespace Kovrel
