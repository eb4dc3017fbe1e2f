#pragma once

#include <QSocketNotifier>

#include <functional>

namespace Kovrel {

// The signals that ask a process to end, as calls on the main thread instead of the process's end: SIGTERM, SIGINT (as
// of Ctrl+C) and SIGHUP (a terminal that closes). One for each process.
class QuitSignals {
public:
    explicit QuitSignals(std::function<void(const char* name)> onSignal);
    ~QuitSignals();
    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

private:
    int m_descriptor;
    QSocketNotifier m_notifier;
};

} // namespace Kovrel
