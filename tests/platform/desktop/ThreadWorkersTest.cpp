#include "platform/desktop/ThreadWorkers.h"

#include "tests/support/LogLines.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(ThreadWorkers, ALaneGoesOnAfterAJobThatThrows)
{
    const Testing::LogLines log;
    ThreadWorkers workers;
    std::vector<std::string> done;
    workers.submit(Lane::save, [] { throw std::runtime_error("a cable was cut"); });
    workers.submit(Lane::save, [&done] { done.push_back("the next one"); });
    EXPECT_TRUE(workers.finish(std::chrono::seconds(20)));
    EXPECT_EQ(done, std::vector<std::string>{"the next one"});
    EXPECT_EQ(log.lines(), QStringList("com.kovrel.tasks: A job failed: a cable was cut"));
}

} // namespace Kovrel
