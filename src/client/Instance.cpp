#include "client/Instance.h"

#include <systemd/sd-bus.h>
#include <systemd/sd-journal.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <linux/close_range.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <syslog.h>
#include <unistd.h>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

constexpr const char* busName = "com.kovrel.Kovrel";
constexpr const char* objectPath = "/com/kovrel/Kovrel";

using Clock = std::chrono::steady_clock;
constexpr auto patience = 5s;       // until a command is taken on, or the bus answers
constexpr auto startDeadline = 11s; // the program gives up a second before, and says why

uint64_t microseconds(Clock::duration duration)
{
    return uint64_t(std::max<int64_t>(std::chrono::duration_cast<std::chrono::microseconds>(duration).count(), 0));
}

int milliseconds(Clock::duration duration)
{
    return int(microseconds(duration) / 1000);
}

// One call of the instance. It says at once that it has taken a command on, and answers when that is done, however long
// it takes.
class Conversation {
public:
    void hold(sd_bus* bus, sd_bus_message* call)
    {
        sd_bus_slot* filter = nullptr;
        sd_bus_slot* reply = nullptr;
        sd_bus_add_filter(bus, &filter, noteAcceptance, this);
        int result = sd_bus_call_async(bus, &reply, call, noteReply, this, UINT64_MAX);
        const auto deadline = Clock::now() + patience;
        while (!m_isOver && result >= 0 && (m_isAccepted || Clock::now() < deadline)) {
            result = sd_bus_process(bus, nullptr);
            if (result == 0)
                result = sd_bus_wait(bus, m_isAccepted ? UINT64_MAX : microseconds(deadline - Clock::now()));
        }
        sd_bus_slot_unref(reply);
        sd_bus_slot_unref(filter);
    }

    // No value when there is no instance.
    const std::optional<Instance::Answer>& answer() const { return m_answer; }

private:
    static int noteAcceptance(sd_bus_message* message, void* self, sd_bus_error*)
    {
        if (sd_bus_message_is_signal(message, busName, "Accepted") > 0)
            static_cast<Conversation*>(self)->m_isAccepted = true;
        return 0;
    }

    static int noteReply(sd_bus_message* message, void* self, sd_bus_error*)
    {
        static_cast<Conversation*>(self)->take(message);
        return 1;
    }

    void take(sd_bus_message* reply)
    {
        m_isOver = true;
        const char* output = "";
        const char* errors = "";
        int exitCode = 0;
        if (sd_bus_message_is_method_error(reply, SD_BUS_ERROR_SERVICE_UNKNOWN) > 0 ||
            sd_bus_message_is_method_error(reply, SD_BUS_ERROR_NAME_HAS_NO_OWNER) > 0)
            m_answer.reset();
        else if (const sd_bus_error* error = sd_bus_message_get_error(reply))
            m_answer->error += std::string(": ") + (error->message ? error->message : error->name);
        else if (sd_bus_message_read(reply, "iss", &exitCode, &output, &errors) >= 0)
            m_answer = Instance::Answer{exitCode, output, errors};
    }

    bool m_isAccepted = false;
    bool m_isOver = false;
    std::optional<Instance::Answer> m_answer = Instance::Answer{4, "", "the running Kovrel does not answer"};
};

std::string contentOf(int file)
{
    std::string text(size_t(lseek(file, 0, SEEK_END)), '\0');
    const ssize_t count = pread(file, text.data(), text.size(), 0);
    text.resize(size_t(std::max<ssize_t>(count, 0)));
    while (text.ends_with('\n'))
        text.pop_back();
    // It speaks as the program that we are too.
    const std::string prefix = "kovrel: ";
    return text.starts_with(prefix) ? text.substr(prefix.size()) : text;
}

// The child speaks into `errors` until it is up, and then into the journal, whose stream it inherits.
[[noreturn]] void becomeInstance(int errors)
{
    setsid();
    // The folder of whoever happened to be first must not be kept from being unmounted.
    const int nothing = open("/dev/null", O_RDWR);
    if (chdir("/") != 0 || nothing < 0)
        _exit(127);
    dup2(nothing, STDIN_FILENO);
    dup2(nothing, STDOUT_FILENO);
    dup2(errors, STDERR_FILENO);
    int journal = sd_journal_stream_fd("kovrel", LOG_INFO, 1);
    if (journal < 0)
        journal = nothing;
    // Whoever happened to be first must not have its files and locks kept open.
    close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
    const int inherited = dup(journal);
    setenv("KOVREL_LOG_FD", std::to_string(inherited).c_str(), 1);
    execl("/proc/self/exe", "kovrel", "--background", nullptr);
    _exit(127);
}

} // namespace

Instance::Instance()
{
    if (sd_bus_open_user(&m_bus) < 0)
        m_bus = nullptr;
    else
        sd_bus_set_method_call_timeout(m_bus, microseconds(patience));
}

// Without flushing, which would wait for a bus that says nothing.
Instance::~Instance()
{
    sd_bus_close_unref(m_bus);
}

std::optional<Instance::Answer> Instance::run(const std::vector<std::string>& arguments)
{
    if (!m_bus)
        return std::nullopt;
    sd_bus_message* call = nullptr;
    sd_bus_message_new_method_call(m_bus, &call, busName, objectPath, busName, "Run");
    sd_bus_message_set_auto_start(call, 0);
    sd_bus_message_open_container(call, 'a', "s");
    bool isText = true;
    for (const std::string& argument : arguments)
        isText &= sd_bus_message_append(call, "s", argument.c_str()) >= 0;
    sd_bus_message_close_container(call);
    Conversation conversation;
    if (isText)
        conversation.hold(m_bus, call);
    sd_bus_message_unref(call);
    return isText ? conversation.answer() : Answer{2, "", "an argument is not UTF-8 text"};
}

bool Instance::isRunning()
{
    return sd_bus_get_name_creds(m_bus, busName, 0, nullptr) >= 0;
}

std::optional<std::string> Instance::start()
{
    sd_bus_match_signal(m_bus, nullptr, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                        "NameOwnerChanged", nullptr, nullptr);
    const int errors = memfd_create("kovrel-errors", MFD_CLOEXEC);
    const pid_t child = errors < 0 ? -1 : fork();
    if (child < 0)
        return std::string("can't start: ") + std::strerror(errno);
    if (child == 0)
        becomeInstance(errors);

    const int childFd = int(syscall(SYS_pidfd_open, child, 0));
    const auto deadline = Clock::now() + startDeadline;
    while (!isRunning()) {
        pollfd waits[] = {{sd_bus_get_fd(m_bus), POLLIN, 0}, {childFd, POLLIN, 0}};
        const bool isLate = childFd < 0 || poll(waits, 2, milliseconds(deadline - Clock::now())) == 0;
        while (sd_bus_process(m_bus, nullptr) > 0) {
        }
        if (isLate)
            kill(child, SIGKILL);
        // The loser of a race between two first starts ends; the winner is then there.
        if ((isLate || waits[1].revents) && !isRunning()) {
            waitpid(child, nullptr, 0);
            const std::string said = contentOf(errors);
            return !said.empty() ? said
                   : isLate      ? "Kovrel could not start in time"
                                 : "Kovrel ended while it was starting";
        }
    }
    return std::nullopt;
}

} // namespace Kovrel
