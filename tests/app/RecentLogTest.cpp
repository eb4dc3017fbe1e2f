#include "app/foundation/RecentLog.h"

#include <gtest/gtest.h>

#include <thread>

namespace Kovrel {

TEST(RecentLog, KeepsTheLastLinesOfAllThreadsAndNoMoreThanItSays)
{
    RecentLog log;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&log] {
            for (size_t line = 0; line < RecentLog::mostLines; ++line)
                log.add(QtInfoMsg, "com.kovrel.test", "old");
        });
    for (std::thread& thread : threads)
        thread.join();
    log.add(QtWarningMsg, "com.kovrel.test", "the disk\nis full");
    log.add(QtCriticalMsg, "com.kovrel.test", QString(1 << 20, 'x'));
    const QStringList lines = log.lines();
    ASSERT_EQ(size_t(lines.size()), RecentLog::mostLines);
    EXPECT_TRUE(lines[lines.size() - 2].endsWith(" warning com.kovrel.test: the disk is full"));
    EXPECT_EQ(lines.last().size(), RecentLog::longestLine);
}

} // namespace Kovrel
