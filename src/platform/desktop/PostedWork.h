#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

namespace Kovrel {

// Work that any thread hands to the thread that made this object, whose Qt event loop runs it in order. What is still
// waiting when the object goes is not run.
class PostedWork : public QObject {
    Q_OBJECT

public:
    // Any thread.
    void post(std::function<void()> work);

private:
    Q_INVOKABLE void runNext();
    std::function<void()> next();

    // A queue whose lock the thread sanitizer knows, as it does not know that of Qt's.
    std::mutex m_lock;
    std::deque<std::function<void()>> m_work;
};

} // namespace Kovrel
