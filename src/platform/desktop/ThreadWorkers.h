#pragma once

#include "platform/Workers.h"

#include <chrono>
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
    ~ThreadWorkers() override { finish(std::chrono::hours(24)); }

    // Runs what was submitted and ends the threads; a later job starts its lane again. False when a job still hangs
    // after `patience`: its lane is then left behind, and with it whatever the job uses.
    bool finish(std::chrono::milliseconds patience);
    using Workers::submit;
    void submit(Lane lane, QualityOfService qos, std::function<void()> job) override;

private:
    struct Job {
        QualityOfService qos;
        std::function<void()> work;
    };

    struct Queue {
        std::mutex lock;
        std::condition_variable wake;
        std::condition_variable ended;
        std::deque<Job> jobs; // the next one first
        bool isClosing = false;
        bool isDone = false;
        std::thread thread;
    };

    std::shared_ptr<Queue> queueOf(Lane lane);
    static void work(const std::shared_ptr<Queue>& queue, Lane lane);

    std::map<Lane, std::shared_ptr<Queue>> m_queues;
};

} // namespace Kovrel
