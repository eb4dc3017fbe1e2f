#pragma once

#include <chrono>
#include <optional>

namespace Kovrel {

// The time until a card closes by itself, as its ring shows it. Times are those of MainLoop::now().
struct Countdown {
    std::chrono::microseconds deadline{0};
    std::chrono::microseconds total{0};                 // 0: there is none
    std::optional<std::chrono::microseconds> stoppedAt; // while somebody looks

    bool isShown() const { return total.count() > 0; }

    bool isRunning() const { return isShown() && !stoppedAt; }

    // From 1, which is all of it, to 0.
    double remaining(std::chrono::microseconds now) const;

    bool operator==(const Countdown&) const = default;
};

} // namespace Kovrel
