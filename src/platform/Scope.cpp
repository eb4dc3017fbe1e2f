#include "platform/Scope.h"

#include "platform/Guarded.h"

#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.tasks")

QCoro::Task<> guarded(QCoro::Task<> task, const char* what)
{
    try {
        co_await task;
    } catch (const Cancelled&) {
    } catch (...) {
        qCWarning(log, "%s failed: %s", what, qUtf8Printable(Guarded::reason()));
    }
}

} // namespace

Scope::~Scope()
{
    auto waits = std::exchange(m_waits, {});
    for (const auto& weak : waits) {
        if (const auto wait = weak.lock()) {
            wait->isCancelled = true;
            wait->resume();
        }
    }
}

void Scope::start(QCoro::Task<> task, const char* what)
{
    guarded(std::move(task), what);
}

QCoro::Task<Nothing> Scope::withNothing(QCoro::Task<> task)
{
    co_await task;
    co_return Nothing{};
}

Wait<Nothing> Scope::sleep(MainLoop::Milliseconds duration)
{
    return reply<Nothing>([&](Reply<Nothing> done) { m_loop.after(duration, [done] { done({}); }); });
}

} // namespace Kovrel
