#pragma once

#include <QString>

#include <chrono>
#include <optional>
#include <vector>

namespace Kovrel {

// How long a card stays by itself, as the setting says: a number of seconds, or until it is closed.
class PreviewDuration {
public:
    // Whatever is below zero keeps cards, and so does what is no number.
    static PreviewDuration of(double seconds);

    static PreviewDuration keepUntilClosed() { return {}; }

    // Those that are offered, in this order.
    static std::vector<PreviewDuration> choices();
    // What is said of them all.
    static QString helpText(const QString& reopenKeys);

    // None: until it is closed.
    std::optional<std::chrono::microseconds> time() const { return m_time; }

    // As the setting is stored.
    double seconds() const;
    QString title() const;

    bool operator==(const PreviewDuration&) const = default;

private:
    std::optional<std::chrono::microseconds> m_time;
};

} // namespace Kovrel
