#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

namespace Kovrel {

// Whoever observes holds one of these: when it goes, the observation ends. It may outlive what is observed. A default
// one stands for no observation.
class [[nodiscard]] Subscription {
public:
    Subscription() = default;

    // `observer` belongs to the subscription alone.
    explicit Subscription(std::shared_ptr<void> observer) : m_observer(std::move(observer)) {}

    Subscription(Subscription&&) = default;
    Subscription& operator=(Subscription&&) = default;
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() = default;

private:
    std::shared_ptr<void> m_observer;
};

// Who wants to be told of something. Observers may come and go during a notification, and so may the observed object:
// one that has gone is not called any more, one that came is called from the next notification on. One thread only.
template <class... Args>
class Observers {
public:
    using Observer = std::function<void(Args...)>;

    Subscription add(Observer observer)
    {
        std::erase_if(m_observers, [](const auto& known) { return known.expired(); });
        auto added = std::make_shared<Observer>(std::move(observer));
        m_observers.push_back(added);
        return Subscription(std::move(added));
    }

    void notify(Args... args) const
    {
        const auto round = m_observers;
        for (const auto& known : round)
            if (const auto observer = known.lock())
                (*observer)(args...);
    }

    bool isEmpty() const
    {
        return std::ranges::all_of(m_observers, [](const auto& known) { return known.expired(); });
    }

private:
    std::vector<std::weak_ptr<Observer>> m_observers;
};

} // namespace Kovrel
