#include "app/StartDeadline.h"

#include "commandline/CommandLine.h"

#include <csignal>
#include <string_view>
#include <unistd.h>

namespace Kovrel {

namespace {

constexpr unsigned seconds = 10;

// Only what is safe in a signal handler.
[[noreturn]] void endWith(std::string_view line)
{
    [[maybe_unused]] const auto written = write(STDERR_FILENO, line.data(), line.size());
    _exit(CommandLine::failed);
}

void giveUp(int)
{
    endWith("kovrel: the display server or the session bus does not answer\n");
}

void endLost(int)
{
    endWith("kovrel: the display server has gone\n");
}

} // namespace

StartDeadline::StartDeadline() : m_suddenExit([] { endLost(0); })
{
    std::signal(SIGALRM, giveUp);
    std::signal(SIGABRT, endLost);
    alarm(seconds);
}

StartDeadline::~StartDeadline()
{
    alarm(0);
    std::signal(SIGALRM, SIG_DFL);
    std::signal(SIGABRT, SIG_DFL);
}

} // namespace Kovrel
