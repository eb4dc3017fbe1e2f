#pragma once

#include "platform/Workers.h"

#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

namespace Kovrel {

// One thread for each lane, started with the lane's first job.
class ThreadWorkers : public Workers {
public:
    ~ThreadWorkers() override { finish(); }

    // Runs what was submitted and ends the threads; a later job starts its lane again.
    void finish();
    void submit(Lane lane, std::function<void()> job) override;

private:
    struct Queue {
        std::mutex lock;
        std::condition_variable wake;
        std::deque<std::function<void()>> jobs;
        bool isClosing = false;
        std::thread thread;
    };

    static void work(Queue& queue, Lane lane);

    std::map<Lane, std::unique_ptr<Queue>> m_queues;
};

} // namespace Kovrel
