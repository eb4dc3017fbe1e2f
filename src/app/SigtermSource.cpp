#include "app/SigtermSource.h"

#include <csignal>
#include <sys/eventfd.h>
#include <unistd.h>

namespace Kovrel {

namespace {

int signalledDescriptor = -1;

// Only what is safe in a signal handler.
void noteSignal(int)
{
    const uint64_t one = 1;
    [[maybe_unused]] const auto written = write(signalledDescriptor, &one, sizeof one);
}

} // namespace

SigtermSource::SigtermSource(std::function<void()> onSignal)
    : m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), m_notifier(m_descriptor, QSocketNotifier::Read)
{
    signalledDescriptor = m_descriptor;
    QObject::connect(&m_notifier, &QSocketNotifier::activated, [this, onSignal = std::move(onSignal)] {
        uint64_t count = 0;
        [[maybe_unused]] const auto size = read(m_descriptor, &count, sizeof count);
        onSignal();
    });
    std::signal(SIGTERM, noteSignal);
}

SigtermSource::~SigtermSource()
{
    std::signal(SIGTERM, SIG_DFL);
    close(m_descriptor);
}

} // namespace Kovrel
