#pragma once

#include <memory>
#include <utility>

namespace Kovrel {

// A member of an object whose callbacks may come after its end, or may bring that end about: what it has guarded is
// dropped once the object has gone. Main thread only.
class Lifeline {
public:
    Lifeline() = default;
    Lifeline(const Lifeline&) = delete;
    Lifeline& operator=(const Lifeline&) = delete;

    // Expires with the object.
    std::weak_ptr<void> watch() const { return m_object; }

    template <class Callback>
    auto guard(Callback callback) const
    {
        return [object = watch(), callback = std::move(callback)](auto&&... arguments) {
            if (!object.expired())
                callback(std::forward<decltype(arguments)>(arguments)...);
        };
    }

private:
    std::shared_ptr<void> m_object = std::make_shared<char>();
};

} // namespace Kovrel
