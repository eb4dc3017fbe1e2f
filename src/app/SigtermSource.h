#pragma once

#include <QSocketNotifier>

#include <functional>

namespace Kovrel {

// SIGTERM as a call on the main thread instead of the process's end. One for each process.
class SigtermSource {
public:
    explicit SigtermSource(std::function<void()> onSignal);
    ~SigtermSource();
    SigtermSource(const SigtermSource&) = delete;
    SigtermSource& operator=(const SigtermSource&) = delete;

private:
    int m_descriptor;
    QSocketNotifier m_notifier;
};

} // namespace Kovrel
