#pragma once

#include <QEventLoop>

#include <chrono>
#include <stop_token>

namespace Kovrel {

// Waits on a worker for what others tell by events. Belongs to the thread that waits.
class WorkerWait {
public:
    WorkerWait(std::chrono::milliseconds patience, std::stop_token stop);

    // What was waited for has come.
    void end();

    // Returns with `end`, when the patience is over, or when it is stopped. Whether it was `end`.
    bool wait();

private:
    std::chrono::milliseconds m_patience; // what is left of it
    std::stop_token m_stop;
    QEventLoop m_loop;
    bool m_hasEnded = false;
};

} // namespace Kovrel
