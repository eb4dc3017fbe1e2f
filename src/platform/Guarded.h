#pragma once

#include <QString>

#include <expected>
#include <type_traits>
#include <utility>

namespace Kovrel {

// Jobs that owe an answer, and give it also when what they do throws: memory may be short, a library may give up. Any
// thread.
namespace Guarded {

// What was thrown, in one line for people. Only where it was caught.
QString reason();

// The same job; where it throws, it answers what `failure` makes of the reason.
template <class Job, class Failure>
auto job(Job job, Failure failure)
{
    return [job = std::move(job), failure = std::move(failure)]() mutable noexcept -> std::invoke_result_t<Job> {
        try {
            return job();
        } catch (...) {
            return failure(reason());
        }
    };
}

// The same job, whose answer is an expected value; where it throws, the failure is the reason.
template <class Job>
auto orReason(Job job)
{
    using Answer = std::invoke_result_t<Job>;
    return Guarded::job(std::move(job), [](QString reason) -> Answer {
        return std::unexpected(typename Answer::error_type{std::move(reason)});
    });
}

void logReason(const QString& reason);

// The same job; where it throws, it answers something else, and the reason is logged.
template <class Job>
auto orElse(Job job, std::invoke_result_t<Job> other)
{
    return Guarded::job(std::move(job), [other = std::move(other)](const QString& reason) {
        logReason(reason);
        return other;
    });
}

} // namespace Guarded

} // namespace Kovrel
