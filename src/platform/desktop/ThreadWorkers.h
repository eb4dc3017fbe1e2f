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
    // What becomes of a job for whose lane no thread can be had. Done at once, it takes the thread of whoever submits
    // it: right where nobody looks at anything meanwhile.
    enum class WithoutThread { refused, doneAtOnce };

    ThreadWorkers() = default;

    explicit ThreadWorkers(WithoutThread withoutThread) : m_withoutThread(withoutThread) {}

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
    std::shared_ptr<Queue> queueIfAny(Lane lane);
    static void work(const std::shared_ptr<Queue>& queue, Lane lane);

    const WithoutThread m_withoutThread = WithoutThread::refused;
    std::map<Lane, std::shared_ptr<Queue>> m_queues;
};

} // namespace Kovrel
