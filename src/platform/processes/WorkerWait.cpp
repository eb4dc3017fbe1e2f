#include "platform/processes/WorkerWait.h"

#include <QDeadlineTimer>
#include <QTimer>

#include <utility>

namespace Kovrel {

WorkerWait::WorkerWait(std::chrono::milliseconds patience, std::stop_token stop)
    : m_patience(patience), m_stop(std::move(stop))
{
}

void WorkerWait::end()
{
    m_hasEnded = true;
    m_loop.quit();
}

bool WorkerWait::wait()
{
    if (m_hasEnded || m_stop.stop_requested())
        return std::exchange(m_hasEnded, false);
    const QDeadlineTimer deadline(m_patience);
    QTimer timer;
    timer.callOnTimeout(&m_loop, &QEventLoop::quit);
    timer.start(m_patience);
    const std::stop_callback stopped(
        m_stop, [this] { QMetaObject::invokeMethod(&m_loop, &QEventLoop::quit, Qt::QueuedConnection); });
    m_loop.exec();
    m_patience = std::chrono::milliseconds(deadline.remainingTime());
    return std::exchange(m_hasEnded, false);
}

} // namespace Kovrel
