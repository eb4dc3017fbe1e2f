#include "history/text/PacedSave.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"

#include <utility>

namespace Kovrel {

using std::chrono::ceil;

PacedSave::PacedSave(MainLoop& loop, Workers& workers, Lane lane, std::function<Write()> makeWrite)
    : m_loop(loop), m_workers(workers), m_lane(lane), m_makeWrite(std::move(makeWrite))
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

void PacedSave::setTimer()
{
    m_loop.cancel(std::exchange(m_timer, 0));
    if (!m_hasChanged || m_batchDepth > 0)
        return;
    const auto left = std::max(m_due - m_loop.now(), std::chrono::microseconds(0));
    m_timer = m_loop.after(ceil<MainLoop::Milliseconds>(left), [this] {
        m_timer = 0;
        writeNow();
    });
}

void PacedSave::writeNow()
{
    m_loop.cancel(std::exchange(m_timer, 0));
    if (!std::exchange(m_hasChanged, false))
        return;
    const auto ended = m_lifeline.guard([this](bool isWritten) { m_hasChanged |= !isWritten; });
    replyFromWorker<bool>(m_loop, m_workers, m_lane, QualityOfService::background,
                          Guarded::orElse(m_makeWrite(), false), ended);
}

} // namespace Kovrel
