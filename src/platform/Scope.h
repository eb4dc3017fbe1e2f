#pragma once

#include "platform/MainLoop.h"
#include "platform/Reply.h"
#include "platform/Workers.h"

#include <QCoroTask>

#include <coroutine>
#include <exception>
#include <memory>
#include <optional>
#include <type_traits>
#include <variant>
#include <vector>

namespace Kovrel {

// Thrown out of every wait of a Scope that goes away. It unwinds a coroutine silently up to `Scope::start`.
struct Cancelled {};

namespace Detail {

// What a wait and whoever completes it share. Main thread only.
struct Waiting {
    std::coroutine_handle<> waiter;
    bool isCancelled = false;

    void resume()
    {
        if (waiter)
            std::exchange(waiter, nullptr).resume();
    }
};

template <class T>
struct Outcome : Waiting {
    std::variant<std::monostate, T, std::exception_ptr> value;

    void complete(std::variant<std::monostate, T, std::exception_ptr> outcome)
    {
        if (isCancelled || value.index() != 0)
            return;
        value = std::move(outcome);
        resume();
    }
};

} // namespace Detail

// The awaitable that a Scope hands out.
template <class T>
class [[nodiscard]] Wait {
public:
    explicit Wait(std::shared_ptr<Detail::Outcome<T>> outcome) : m_outcome(std::move(outcome)) {}

    bool await_ready() const { return m_outcome->isCancelled || m_outcome->value.index() != 0; }

    void await_suspend(std::coroutine_handle<> waiter) { m_outcome->waiter = waiter; }

    T await_resume()
    {
        if (m_outcome->isCancelled)
            throw Cancelled{};
        if (m_outcome->value.index() == 2)
            std::rethrow_exception(std::get<2>(m_outcome->value));
        return std::get<1>(std::move(m_outcome->value));
    }

private:
    std::shared_ptr<Detail::Outcome<T>> m_outcome;
};

// Stands for "no value" where a wait has nothing to hand over.
struct Nothing {};

// All waits of one object's coroutines. It is the object's last member, so that it goes first: every pending wait
// then throws `Cancelled` into its coroutine while the object is still whole. Main thread only.
//
// Coroutines take their parameters by value, and `co_await` stands alone or as the whole right-hand side.
class Scope {
public:
    Scope(MainLoop& loop, Workers& workers) : m_loop(loop), m_workers(workers) {}

    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

    // Lets a coroutine run on by itself. A failure is logged with `what`, `Cancelled` is not.
    static void start(QCoro::Task<> task, const char* what);

    // Runs the job on a worker lane and resumes on the main thread, with what it throws too: a coroutine that owes a
    // reply guards it (see `Guarded`). The job must own what it uses: it outlives the scope.
    template <class Job>
    auto onWorker(Lane lane, Job job)
    {
        return onWorker(lane, QualityOfService::userInitiated, std::move(job));
    }

    template <class Job>
    auto onWorker(Lane lane, QualityOfService qos, Job job)
    {
        using T = std::invoke_result_t<Job>;
        using Value = std::conditional_t<std::is_void_v<T>, Nothing, T>;
        auto outcome = add<Value>();
        // Made here: on the worker, a shortage of memory would leave the coroutine waiting.
        auto value = std::make_shared<std::variant<std::monostate, Value, std::exception_ptr>>();
        m_workers.submit(lane, qos, [outcome, value, job = std::move(job), loop = &m_loop]() mutable {
            try {
                if constexpr (std::is_void_v<T>) {
                    job();
                    value->template emplace<1>();
                } else {
                    value->template emplace<1>(job());
                }
            } catch (...) {
                value->template emplace<2>(std::current_exception());
            }
            loop->post([outcome, value] { outcome->complete(std::move(*value)); });
        });
        return Wait<Value>(outcome);
    }

    Wait<Nothing> sleep(MainLoop::Milliseconds duration);

    // Asks a service that answers through a Reply: co_await scope.reply<T>([&](Reply<T> done) { ask(done); }).
    template <class T, class Ask>
    Wait<T> reply(Ask ask)
    {
        auto outcome = add<T>();
        ask(Reply<T>([outcome](T value) { completeWith<T>(*outcome, std::move(value)); }));
        return Wait<T>(outcome);
    }

    // Waits for another object's coroutine, without being resumed by it once this scope has gone.
    Wait<Nothing> join(QCoro::Task<> task) { return join(withNothing(std::move(task))); }

    template <class T>
    Wait<T> join(QCoro::Task<T> task)
    {
        auto outcome = add<T>();
        start(bridge<T>(std::move(task), outcome), "");
        return Wait<T>(outcome);
    }

private:
    template <class T>
    std::shared_ptr<Detail::Outcome<T>> add()
    {
        auto outcome = std::make_shared<Detail::Outcome<T>>();
        std::erase_if(m_waits, [](const auto& wait) { return wait.expired(); });
        m_waits.push_back(outcome);
        return outcome;
    }

    template <class T>
    static void completeWith(Detail::Outcome<T>& outcome, T value)
    {
        outcome.complete(std::variant<std::monostate, T, std::exception_ptr>(std::in_place_index<1>, std::move(value)));
    }

    static QCoro::Task<Nothing> withNothing(QCoro::Task<> task);

    template <class T>
    static QCoro::Task<> bridge(QCoro::Task<T> task, std::shared_ptr<Detail::Outcome<T>> outcome)
    {
        std::optional<T> value;
        std::exception_ptr error;
        try {
            value = co_await task;
        } catch (...) {
            error = std::current_exception();
        }
        if (error)
            outcome->complete(
                std::variant<std::monostate, T, std::exception_ptr>(std::in_place_index<2>, std::move(error)));
        else
            completeWith<T>(*outcome, std::move(*value));
    }

    MainLoop& m_loop;
    Workers& m_workers;
    std::vector<std::weak_ptr<Detail::Waiting>> m_waits;
};

} // namespace Kovrel
