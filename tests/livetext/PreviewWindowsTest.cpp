#include "livetext/preview/PreviewWindows.h"
#include "tests/support/FakeCaptureServices.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QKeyEvent>

namespace Kovrel {

namespace {

struct PreviewWindowsTest : testing::Test {
    PreviewWindowsTest() { Testing::testPicture({60, 40}, Testing::Texture::blocks).save(file); }

    void settle()
    {
        do
            fake.loop.runPosted();
        while (fake.workers.runAll() > 0);
        fake.loop.runPosted();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void show(const QString& path)
    {
        previews.show(path);
        settle();
    }

    void press(Qt::Key key)
    {
        QKeyEvent event(QEvent::KeyPress, key, {});
        QApplication::sendEvent(previews.window(file), &event);
        settle();
    }

    Testing::FakeCaptureServices fake;
    QString file = fake.folder / "mine.png";
    PreviewWindows previews{{fake.loop, fake.workers, fake.preferences, fake.desktop.programs(), fake.ports}};
};

} // namespace

TEST_F(PreviewWindowsTest, APictureIsShownOnceAndItsFileMayGo)
{
    show(file);
    PreviewWindow* const first = previews.window(file);
    ASSERT_TRUE(first);
    QFile::remove(file);
    show(file);
    EXPECT_EQ(previews.window(file), first);
    EXPECT_EQ(first->picture().size(), QSize(60, 40));
    press(Qt::Key_Escape);
    EXPECT_FALSE(previews.window(file));
}

TEST_F(PreviewWindowsTest, WhatWeCanNotReadIsShownByTheProgramThatTheUserPrefers)
{
    QFile(file).resize(40);
    show(file);
    EXPECT_FALSE(previews.window(file));
    EXPECT_EQ(fake.desktop.programs().handedOver, QStringList("preferred: " + file));
}

TEST_F(PreviewWindowsTest, ReadingEndsWithTheWindowAndALateAnswerIsForNobody)
{
    fake.holdsReading = true;
    show(file);
    ASSERT_EQ(fake.heldReadings.size(), 1U);
    const auto [stop, reply] = fake.heldReadings.front();
    EXPECT_FALSE(stop.stop_requested());
    press(Qt::Key_Space);
    EXPECT_TRUE(stop.stop_requested());
    reply({});
    EXPECT_FALSE(previews.window(file));
}

} // namespace Kovrel
