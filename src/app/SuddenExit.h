#pragma once

#include <functional>

namespace Kovrel {

// What must still be done when a library ends the process, as the toolkit does when its display server is gone: the
// event loop never comes back then, and nothing on main's stack is destroyed. One for each process. Main thread.
class SuddenExit {
public:
    explicit SuddenExit(std::function<void()> work);
    ~SuddenExit();
    SuddenExit(const SuddenExit&) = delete;
    SuddenExit& operator=(const SuddenExit&) = delete;
};

} // namespace Kovrel
