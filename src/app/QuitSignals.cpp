#include "app/QuitSignals.h"

#include <csignal>
#include <sys/eventfd.h>
#include <unistd.h>

namespace Kovrel {

namespace {

constexpr int quitSignals[] = {SIGTERM, SIGINT, SIGHUP};

int signalledDescriptor = -1;

// Only what is safe in a signal handler. The counter can't be told apart from several signals at once, all of which
// mean the same.
void noteSignal(int number)
{
    const uint64_t count = uint64_t(number);
    [[maybe_unused]] const auto written = write(signalledDescriptor, &count, sizeof count);
}

const char* nameOf(uint64_t number)
{
    return number == SIGINT ? "SIGINT" : number == SIGHUP ? "SIGHUP" : "SIGTERM";
}

} // namespace

QuitSignals::QuitSignals(std::function<void(const char*)> onSignal)
    : m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), m_notifier(m_descriptor, QSocketNotifier::Read)
{
    signalledDescriptor = m_descriptor;
    QObject::connect(&m_notifier, &QSocketNotifier::activated, [this, onSignal = std::move(onSignal)] {
        uint64_t number = 0;
        [[maybe_unused]] const auto size = read(m_descriptor, &number, sizeof number);
        onSignal(nameOf(number));
    });
    for (const int number : quitSignals)
        std::signal(number, noteSignal);
}

QuitSignals::~QuitSignals()
{
    for (const int number : quitSignals)
        std::signal(number, SIG_DFL);
    close(m_descriptor);
}

} // namespace Kovrel
