#pragma once

#include "platform/Guarded.h"
#include "platform/Workers.h"

#include <algorithm>
#include <deque>
#include <map>

namespace Kovrel::Testing {

// Lanes whose jobs run when the test says so, on the test's thread.
class FakeWorkers : public Workers {
public:
    using Workers::submit;

    std::function<void()> beforeEachJob = [] {};

    void submit(Lane lane, QualityOfService qos, std::function<void()> job) override
    {
        auto& jobs = m_jobs[lane];
        const auto place = std::ranges::upper_bound(jobs, qos, std::greater(), &Job::qos);
        jobs.insert(place, {qos, std::move(job)});
    }

    size_t pending(Lane lane) { return m_jobs[lane].size(); }

    // Runs the jobs that wait now; answers how many there were.
    size_t run(Lane lane)
    {
        auto jobs = std::exchange(m_jobs[lane], {});
        for (const auto& job : jobs)
            runJob(job.work);
        return jobs.size();
    }

    // Runs the first job that waits in a lane.
    void runNext(Lane lane)
    {
        if (m_jobs[lane].empty())
            return;
        const auto job = std::move(m_jobs[lane].front().work);
        m_jobs[lane].pop_front();
        runJob(job);
    }

    size_t runAll()
    {
        size_t count = 0;
        for (const Lane lane :
             {Lane::capture, Lane::save, Lane::clipboard, Lane::paste, Lane::editorSave, Lane::shutter, Lane::codes,
              Lane::utility, Lane::visionOCR, Lane::ocrFiles, Lane::history, Lane::thumbnails, Lane::search,
              Lane::searchIndex, Lane::cardFace, Lane::packages})
            count += run(lane);
        return count;
    }

private:
    struct Job {
        QualityOfService qos;
        std::function<void()> work;
    };

    void runJob(const std::function<void()>& job)
    {
        auto guarded = Guarded::job(job, Guarded::logReason);
        beforeEachJob();
        guarded();
    }

    std::map<Lane, std::deque<Job>> m_jobs;
};

} // namespace Kovrel::Testing
