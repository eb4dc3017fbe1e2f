#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>

namespace Kovrel::Testing {

// Lets the event loop run until something holds; false when it never does.
template <class Condition>
bool waitFor(Condition condition)
{
    const QDeadlineTimer deadline(20000);
    while (!condition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return condition();
}

} // namespace Kovrel::Testing
