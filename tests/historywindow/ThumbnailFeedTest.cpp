#include "historywindow/grid/ThumbnailFeed.h"

#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct ThumbnailFeedTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    std::vector<int> read; // numbers of captures, in the order in which their files were read
    std::vector<int> arrived;
    QSize side{10, 10};
    ThumbnailFeed feed{loop, workers,
                       [this](QUuid id, QSize bounds) {
                           read.push_back(int(id.data1));
                           QImage picture(id.data1 == missing ? QSize() : bounds, QImage::Format_RGB32);
                           picture.fill(color);
                           return picture;
                       },
                       [this](QUuid id) { arrived.push_back(int(id.data1)); }};
    Qt::GlobalColor color = Qt::red;
    static constexpr uint missing = 99;

    static QUuid id(int number) { return QUuid(uint(number), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0); }

    void want(std::initializer_list<int> numbers)
    {
        std::vector<QUuid> ids;
        for (const int number : numbers)
            ids.push_back(id(number));
        feed.want(std::move(ids));
    }

    void settle()
    {
        do
            loop.runPosted();
        while (workers.runAll() > 0);
        loop.runPosted();
    }

    void SetUp() override { feed.setBounds(side); }
};

} // namespace

TEST_F(ThumbnailFeedTest, ReadsWhatIsMostUrgentAndNothingThatWasScrolledPast)
{
    want({1, 2, 3, 4, 5, 6});
    workers.runAll();
    want({7, 8, 1});
    settle();
    EXPECT_THAT(read, ElementsAre(1, 2, 7, 8));
    EXPECT_THAT(arrived, ElementsAre(1, 2, 7, 8));
    EXPECT_EQ(feed.picture(id(7)).size(), side);
    EXPECT_TRUE(feed.isExpected(id(3)));
}

TEST_F(ThumbnailFeedTest, WhatHasNoPictureIsAskedForOnce)
{
    want({int(missing)});
    settle();
    want({int(missing)});
    settle();
    EXPECT_THAT(read, ElementsAre(int(missing)));
    EXPECT_FALSE(feed.isExpected(id(missing)));
    EXPECT_TRUE(feed.picture(id(missing)).isNull());
}

TEST_F(ThumbnailFeedTest, WhatChangedWhileItWasReadIsReadAgain)
{
    want({1});
    workers.runAll();
    color = Qt::blue;
    feed.forget(id(1));
    settle();
    EXPECT_THAT(read, ElementsAre(1, 1));
    EXPECT_EQ(feed.picture(id(1)).pixelColor(0, 0), QColor(Qt::blue));
    EXPECT_THAT(arrived, ElementsAre(1)) << "the old one is never shown";
}

TEST_F(ThumbnailFeedTest, AnotherSizeIsReadAnew)
{
    want({1});
    workers.runAll();
    feed.setBounds({20, 20});
    settle();
    EXPECT_EQ(feed.picture(id(1)).size(), QSize(20, 20));
}

TEST_F(ThumbnailFeedTest, KeepsAsManyAsThereIsRoomForAndTheShownOnesLongest)
{
    feed.setBounds({2048, 2048}); // 16 MB each
    want({1, 2, 3, 4});
    settle();
    want({1, 5});
    settle();
    EXPECT_FALSE(feed.picture(id(1)).isNull()) << "it is shown";
    EXPECT_FALSE(feed.picture(id(5)).isNull());
    EXPECT_TRUE(feed.picture(id(2)).isNull());
}

} // namespace Kovrel
