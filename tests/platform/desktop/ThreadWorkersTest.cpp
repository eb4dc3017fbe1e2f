#include "platform/desktop/ThreadWorkers.h"

#include "platform/Scope.h"
#include "platform/desktop/QtMainLoop.h"
#include "saving/SaveService.h"
#include "tests/support/EventLoop.h"
#include "tests/support/LogLines.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace Kovrel {

namespace {

using namespace std::chrono_literals;

// A job that ends when it is told to.
struct HeldJob {
    std::promise<void> release;

    std::function<void()> job()
    {
        return [released = release.get_future().share()] { released.wait(); };
    }
};

QCoro::Task<> keepThread(Scope* scope, std::shared_ptr<std::optional<std::thread::id>> into)
{
    const auto worker = co_await scope->onWorker(Lane::save, [] { return std::this_thread::get_id(); });
    *into = worker;
}

} // namespace

TEST(ThreadWorkersTest, OfTheJobsThatWaitInALaneTheMostUrgentIsFirst)
{
    std::string order;
    ThreadWorkers workers;
    HeldJob held;
    workers.submit(Lane::save, held.job());
    const auto note = [&](QualityOfService qos, char letter) {
        workers.submit(Lane::save, qos, [&order, letter] { order += letter; });
    };
    note(QualityOfService::background, 'd');
    note(QualityOfService::userInitiated, 'b');
    note(QualityOfService::userInteractive, 'a');
    note(QualityOfService::userInitiated, 'c');
    held.release.set_value();
    EXPECT_TRUE(workers.finish(1h));
    EXPECT_EQ(order, "abcd");
}

TEST(ThreadWorkersTest, LanesDoNotWaitForEachOther)
{
    ThreadWorkers workers;
    HeldJob held;
    workers.submit(Lane::save, held.job());
    workers.submit(Lane::capture, [&held] { held.release.set_value(); });
    EXPECT_TRUE(workers.finish(1h));
}

TEST(ThreadWorkersTest, AJobThatHangsIsLeftBehind)
{
    ThreadWorkers workers;
    HeldJob held;
    std::promise<void> left;
    workers.submit(Lane::save, [wait = held.job(), &left] {
        wait();
        left.set_value_at_thread_exit();
    });
    EXPECT_FALSE(workers.finish(1ms));
    held.release.set_value();
    left.get_future().wait();
}

TEST(ThreadWorkersTest, ALaneStartsAgainAfterItsEnd)
{
    int runs = 0;
    ThreadWorkers workers;
    for (int round = 0; round < 2; ++round) {
        workers.submit(Lane::save, [&runs] { ++runs; });
        EXPECT_TRUE(workers.finish(1h));
    }
    EXPECT_EQ(runs, 2);
}

TEST(ThreadWorkersTest, WhatALaneMadeArrivesOnTheMainThread)
{
    QtMainLoop loop;
    ThreadWorkers workers;
    Scope scope(loop, workers);
    const auto worker = std::make_shared<std::optional<std::thread::id>>();
    Scope::start(keepThread(&scope, worker), "test");
    EXPECT_TRUE(Testing::waitFor([worker] { return worker->has_value(); }));
    EXPECT_NE(*worker, std::this_thread::get_id());
}

TEST(ThreadWorkersTest, AnAnswerThatComesAfterItsScopeWakesNobody)
{
    QtMainLoop loop;
    ThreadWorkers workers;
    HeldJob held;
    workers.submit(Lane::save, held.job());
    const auto worker = std::make_shared<std::optional<std::thread::id>>();
    {
        Scope scope(loop, workers);
        Scope::start(keepThread(&scope, worker), "test");
    }
    held.release.set_value();
    workers.finish(1h);
    QCoreApplication::processEvents();
    EXPECT_FALSE(*worker);
}

TEST(ThreadWorkersTest, SavesOfTwoLanesAtOnceGetNamesOfTheirOwn)
{
    const Testing::TempFolder folder;
    ReservationJournal journal{folder / "journal"};
    const SaveSettings settings{.folder = folder / "shots"};
    const QImage image = Testing::testPicture({40, 30}, Testing::Texture::blocks);
    const QDateTime date(QDate(2024, 3, 5), QTime(9, 7, 3));
    ThreadWorkers workers;
    for (int round = 0; round < 4; ++round)
        for (const Lane lane : {Lane::save, Lane::editorSave})
            workers.submit(lane, [&] {
                EXPECT_TRUE(
                    SaveService::saveToDefaultLocationReturningPNG(settings, image, date, {}, {}, journal).has_value());
            });
    workers.finish(1h);
    EXPECT_EQ(QDir(settings.folder).entryList(QDir::Files | QDir::Hidden).size(), 8);
}

TEST(ThreadWorkersTest, ALaneGoesOnAfterAJobThatThrows)
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
