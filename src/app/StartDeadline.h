#pragma once

#include "app/SuddenExit.h"

namespace Kovrel {

// While it lives the program starts. A display server or a bus that accepts a connection and then says nothing, or that
// goes in the middle, ends the process with one line and the exit code of a failure, whatever library waits for it. One
// for each process. Main thread.
class StartDeadline {
public:
    StartDeadline();
    ~StartDeadline();
    StartDeadline(const StartDeadline&) = delete;
    StartDeadline& operator=(const StartDeadline&) = delete;

private:
    SuddenExit m_suddenExit;
};

} // namespace Kovrel
