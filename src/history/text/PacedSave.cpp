#include "history/text/PacedSave.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"

#include <utility>

namespace Kovrel {

using std::chrono::ceil;

PacedSave::PacedSave(MainLoop& loop, Workers& workers, Lane lane, std::function<Write()> writeNow)
    : m_loop(loop), m_workers(workers), m_lane(lane), m_writeNow(std::move(writeNow))
{
}

PacedSave::~PacedSave()
{
    m_loop.cancel(m_timer);
}

void PacedSave::schedule(MainLoop::Milliseconds delay)
{
    const auto due = m_loop.now() + delay;
    m_due = m_hasChanged ? std::min(m_due, due) : due;
    m_hasChanged = true;
    setTimer();
}

void PacedSave::endBatch()
{
    --m_batchDepth;
    setTimer();
}

void PacedSave::finish(std::function<void()> done)
{
    write(std::move(done));
}

void PacedSave::setTimer()
{
    m_loop.cancel(std::exchange(m_timer, 0));
    if (!m_hasChanged || m_batchDepth > 0)
        return;
    const auto left = std::max(m_due - m_loop.now(), std::chrono::microseconds(0));
    m_timer = m_loop.after(ceil<MainLoop::Milliseconds>(left), [this] {
        m_timer = 0;
        write([] {});
    });
}

// The lane runs one job after the other, so that even one that does nothing waits for those before it.
void PacedSave::write(std::function<void()> done)
{
    m_loop.cancel(std::exchange(m_timer, 0));
    const Write job = std::exchange(m_hasChanged, false) ? m_writeNow() : Write([] { return true; });
    const auto ended = [object = m_lifeline.watch(), this, done = std::move(done)](bool isWritten) {
        if (!object.expired())
            m_hasChanged |= !isWritten;
        done();
    };
    replyFromWorker<bool>(m_loop, m_workers, m_lane, QualityOfService::background, Guarded::orElse(job, false), ended);
}

} // namespace Kovrel
