#include "updates/UpdateCheck.h"

#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/LogLines.h"
#include "tests/support/TempFolder.h"
#include "tests/support/desktop/FakePackageManager.h"
#include "updates/PackageVersion.h"

#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;

TEST(PackageVersion, TheNewestIsToldIfItIsNewerThanWhatRuns)
{
    struct Case {
        QStringList versions;
        const char* running;
        const char* newest;
    };

    for (const Case& c :
         {Case{{"1.3"}, "1.2", "1.3"}, Case{{"1:1.3-2+b1"}, "1.2", "1.3"}, Case{{"1.10"}, "1.9", "1.10"},
          Case{{"1.3", "1.4-1", "1.2"}, "1.2", "1.4"}, Case{{"1.2-3"}, "1.2", ""}, Case{{"1.2.0"}, "1.2", ""},
          Case{{"0.9"}, "1.2", ""}, Case{{"1.3~rc1-1"}, "1.3", ""}, Case{{"1.3~rc1-1"}, "1.2", "1.3~rc1"},
          Case{{"", "junk", "-"}, "1.2", ""}, Case{{}, "1.2", ""}})
        EXPECT_EQ(PackageVersion::newest(c.versions, c.running).value_or(""), c.newest)
            << qPrintable(c.versions.join(' '));
}

namespace {

struct UpdateCheckTest : testing::Test {
    Testing::TempFolder folder;
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::LogLines log;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    std::shared_ptr<Testing::FakePackageManager> packages = std::make_shared<Testing::FakePackageManager>();
    std::optional<UpdateCheck> check;
    int changes = 0;
    Subscription observed;

    void SetUp() override
    {
        Preferences::registerDefaults(defaults);
        check.emplace(UpdateCheck::Services{loop, workers, preferences, packages}, "1.2");
        observed = check->onChange([this] { ++changes; });
        check->start();
    }

    // The answer that is there after some time.
    std::optional<QString> after(std::chrono::milliseconds time)
    {
        loop.advance(time);
        workers.runAll();
        loop.runPosted();
        return check->newerVersion();
    }
};

} // namespace

TEST_F(UpdateCheckTest, AsksOnceAfterTheStartAndThenEachDay)
{
    packages->known = QStringList{"1.3-1"};
    EXPECT_EQ(after(9min), std::nullopt);
    EXPECT_TRUE(packages->asked.isEmpty());
    EXPECT_EQ(after(2min), "1.3");
    EXPECT_EQ(packages->asked, QStringList("kovrel"));
    EXPECT_EQ(after(23h), "1.3");
    EXPECT_EQ(packages->asked.size(), 1);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(loop.pendingTimers(), 1U);
    packages->known = QStringList{"1.2-1"}; // taken back
    EXPECT_EQ(after(1h), std::nullopt);
    EXPECT_EQ(changes, 2);
}

TEST_F(UpdateCheckTest, AFailureIsALineInTheLogAndWhatWasKnownStaysKnown)
{
    packages->known = QStringList{"1.3"};
    EXPECT_EQ(after(11min), "1.3");
    packages->known = std::unexpected(QString("it hangs"));
    EXPECT_EQ(after(24h), "1.3");
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().first().contains("it hangs"));
}

TEST_F(UpdateCheckTest, WhoeverDoesNotWantItIsNotAskedForAndHearsNothing)
{
    packages->known = QStringList{"1.3"};
    EXPECT_EQ(after(11min), "1.3");
    preferences.set(Settings::checksForUpdates, false);
    EXPECT_EQ(check->newerVersion(), std::nullopt);
    EXPECT_EQ(loop.pendingTimers(), 0U);
    EXPECT_EQ(after(48h), std::nullopt);
    EXPECT_EQ(packages->asked.size(), 1);

    preferences.set(Settings::checksForUpdates, true);
    loop.advance(11min);
    preferences.set(Settings::checksForUpdates, false); // while it is asked
    EXPECT_EQ(after(0s), std::nullopt);
}

TEST_F(UpdateCheckTest, TheEndOfTheProgramGivesAQuestionUp)
{
    packages->known = QStringList{"1.3"};
    loop.advance(11min);
    workers.runAll();
    check->stop();
    EXPECT_TRUE(packages->stop.stop_requested());
    loop.runPosted();
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(loop.pendingTimers(), 0U);
    check.reset();
}

} // namespace Kovrel
