#pragma once

#include <functional>
#include <optional>

namespace Kovrel {

// What one part of the program offers to the others; empty while no part offers it. Main thread.
template <class T>
class Port {
public:
    void offer(T& part) { m_part = part; }

    explicit operator bool() const { return m_part.has_value(); }

    T* operator->() const { return &m_part->get(); }

    T& operator*() const { return m_part->get(); }

    // Says something that nobody needs to hear.
    template <class Operation, class... Arguments>
    void tell(Operation operation, Arguments&&... arguments) const
    {
        if (m_part)
            std::invoke(operation, m_part->get(), std::forward<Arguments>(arguments)...);
    }

private:
    std::optional<std::reference_wrapper<T>> m_part;
};

} // namespace Kovrel
