#include "platform/desktop/QtMainLoop.h"

#include <QTimer>

namespace Kovrel {

std::chrono::microseconds QtMainLoop::now() const
{
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

QDateTime QtMainLoop::date() const
{
    return QDateTime::currentDateTime();
}

MainLoop::TimerID QtMainLoop::after(Milliseconds delay, std::function<void()> work)
{
    const TimerID id = ++m_lastTimer;
    auto timer = std::make_unique<QTimer>();
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, &m_posted, [this, id, work = std::move(work)] {
        const auto fired = m_timers.extract(id);
        fired.mapped().release()->deleteLater();
        work();
    });
    timer->start(delay);
    m_timers.emplace(id, std::move(timer));
    return id;
}

void QtMainLoop::cancel(TimerID timer)
{
    m_timers.erase(timer);
}

void QtMainLoop::post(std::function<void()> work)
{
    m_posted.post(std::move(work));
}

} // namespace Kovrel
