#pragma once

#include <csignal>
#include <sys/resource.h>

namespace Kovrel::Testing {

// A disk on which no file can grow beyond some bytes, for root too.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limit{bytes, m_old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }

    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    sighandler_t m_handler;
    rlimit m_old{};
};

} // namespace Kovrel::Testing
