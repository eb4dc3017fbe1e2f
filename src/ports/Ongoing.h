#pragma once

#include <functional>
#include <optional>
#include <vector>

namespace Kovrel {

// Work in flight, for those who must see its end, also when it is over already. Main thread.
template <class Outcome>
class Ongoing {
public:
    // Called at once when the work is over.
    void whenDone(std::function<void(const Outcome&)> callback)
    {
        if (m_outcome)
            callback(*m_outcome);
        else
            m_callbacks.push_back(std::move(callback));
    }

    void finish(Outcome outcome)
    {
        m_outcome = std::move(outcome);
        for (const auto& callback : std::exchange(m_callbacks, {}))
            callback(*m_outcome);
    }

    bool isDone() const { return m_outcome.has_value(); }

private:
    std::optional<Outcome> m_outcome;
    std::vector<std::function<void(const Outcome&)>> m_callbacks;
};

} // namespace Kovrel
