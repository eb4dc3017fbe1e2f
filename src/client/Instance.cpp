#include "client/Instance.h"

#include <systemd/sd-bus.h>
#include <systemd/sd-journal.h>

#include <cerrno>
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

namespace {

constexpr const char* busName = "com.kovrel.Kovrel";
constexpr const char* objectPath = "/com/kovrel/Kovrel";

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
    if (chdir("/") != 0)
        _exit(127);
    const int nothing = open("/dev/null", O_RDWR);
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
}

Instance::~Instance()
{
    sd_bus_flush_close_unref(m_bus);
}

std::optional<Instance::Answer> Instance::run(const std::vector<std::string>& arguments)
{
    if (!m_bus)
        return std::nullopt;
    sd_bus_message* call = nullptr;
    sd_bus_message* reply = nullptr;
    sd_bus_error error = SD_BUS_ERROR_NULL;
    sd_bus_message_new_method_call(m_bus, &call, busName, objectPath, busName, "Run");
    sd_bus_message_set_auto_start(call, 0);
    sd_bus_message_open_container(call, 'a', "s");
    bool isText = true;
    for (const std::string& argument : arguments)
        isText &= sd_bus_message_append(call, "s", argument.c_str()) >= 0;
    sd_bus_message_close_container(call);
    if (!isText) {
        sd_bus_message_unref(call);
        return Answer{2, "", "an argument is not UTF-8 text"};
    }

    std::optional<Answer> answer;
    const char* output = "";
    const char* errors = "";
    int exitCode = 0;
    if (sd_bus_call(m_bus, call, UINT64_MAX, &error, &reply) >= 0 &&
        sd_bus_message_read(reply, "iss", &exitCode, &output, &errors) >= 0)
        answer = Answer{exitCode, output, errors};
    else if (!sd_bus_error_has_name(&error, SD_BUS_ERROR_SERVICE_UNKNOWN) &&
             !sd_bus_error_has_name(&error, SD_BUS_ERROR_NAME_HAS_NO_OWNER))
        answer =
            Answer{4, "", std::string("the running Kovrel did not answer: ") + (error.message ? error.message : "")};
    sd_bus_message_unref(reply);
    sd_bus_message_unref(call);
    sd_bus_error_free(&error);
    return answer;
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
    const pid_t child = fork();
    if (child < 0)
        return std::string("can't start: ") + std::strerror(errno);
    if (child == 0)
        becomeInstance(errors);

    const int childFd = int(syscall(SYS_pidfd_open, child, 0));
    while (!isRunning()) {
        pollfd waits[] = {{sd_bus_get_fd(m_bus), POLLIN, 0}, {childFd, POLLIN, 0}};
        poll(waits, 2, -1);
        while (sd_bus_process(m_bus, nullptr) > 0) {
        }
        // The loser of a race between two first starts ends; the winner is then there.
        if (waits[1].revents && !isRunning()) {
            waitpid(child, nullptr, 0);
            const std::string said = contentOf(errors);
            return said.empty() ? "Kovrel ended while it was starting" : said;
        }
    }
    return std::nullopt;
}

} // namespace Kovrel
