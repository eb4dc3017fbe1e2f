#include "platform/ImageCodec.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/Patterns.h"
#include "tests/support/TempFolder.h"
#include "tests/support/VirtualDisplay.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::pattern;
using Testing::patternAt;

namespace {

struct ScreenshotToolTest : testing::Test {
    struct Run {
        int exit;
        QByteArray errors;
    };

    void start(QProcess& process, const QStringList& options)
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("DISPLAY", display);
        environment.insert("KOVREL_DISPLAY_SCALES", scales);
        process.setProcessEnvironment(environment);
        process.start(SCREENSHOT_TOOL, options + QStringList{"-t", "tiff", path});
    }

    static Run end(QProcess& process)
    {
        EXPECT_TRUE(process.waitForFinished(20000));
        return {process.exitCode(), process.readAllStandardError()};
    }

    Run run(const QStringList& options)
    {
        QProcess process;
        start(process, options);
        return end(process);
    }

    QImage image() const { return ImageCodec::decodeFile(path).value_or(QImage()); }

    // Starts the picker over the window that covers 100,100 to 399,299 and returns when that is outlined.
    void startPicking(QProcess& process)
    {
        screen.movePointer({110, 110});
        const QRgb before = screen.pixelAt({98, 200});
        start(process, {"-w"});
        const QDeadlineTimer deadline(20000);
        while (screen.pixelAt({98, 200}) == before && !deadline.hasExpired()) {
        }
    }

    Testing::TempFolder folder;
    QString path = folder / "shot.tiff";
    QString scales;
    Testing::VirtualDisplay server{{1000, 700}};
    Testing::PaintedScreen screen{server.name()};
    QByteArray display = server.name();
};

} // namespace

TEST_F(ScreenshotToolTest, RectanglesCountPointsFromThePrimarysTopLeftCorner)
{
    screen.setRootPicture(pattern({1000, 700}));
    server.setMonitors({{"MAIN", {400, 300, 600, 400}}, {"LEFT", {0, 0, 400, 700}}});

    struct Case {
        QString scales;
        QString rect;
        QRect pixels;
    };

    const Case cases[] = {
        {"", "0,0,600,400", {400, 300, 600, 400}},
        {"", "-400,-300,20,10", {0, 0, 20, 10}},
        {"LEFT=2", "-400,-300,20,10", {0, 0, 40, 20}},
        {"MAIN=2;LEFT=1", "1,2,100,50", {402, 304, 200, 100}},
    };
    for (const Case& c : cases) {
        scales = c.scales;
        ASSERT_EQ(run({"-x", "-R", c.rect}).exit, 0);
        ASSERT_EQ(image().size(), c.pixels.size());
        for (const QPoint corner : {QPoint(0, 0), QPoint(c.pixels.width() - 1, c.pixels.height() - 1)}) {
            const QPoint root = c.pixels.topLeft() + corner;
            EXPECT_EQ(image().pixel(corner), patternAt(root.x(), root.y()) | 0xff000000);
        }
    }
}

TEST_F(ScreenshotToolTest, TheFileIsForItsOwnerOnlyAndReplacesAnother)
{
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    EXPECT_TRUE(old.setPermissions(QFile::ReadOwner | QFile::ReadOther));
    ASSERT_EQ(run({"-R", "0,0,10,10"}).exit, 0);
    const auto permissions = QFileInfo(path).permissions();
    EXPECT_TRUE(permissions.testFlags(QFile::ReadOwner | QFile::WriteOwner));
    EXPECT_FALSE(permissions & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther));
    EXPECT_EQ(image().size(), QSize(10, 10));
    EXPECT_EQ(folder.files(), QStringList("shot.tiff"));
}

TEST_F(ScreenshotToolTest, DrawsThePointerOnlyWhenAsked)
{
    screen.setRootPicture(pattern({1000, 700}));
    screen.setCursor(16, Qt::red);
    screen.movePointer({100, 100});
    ASSERT_EQ(run({"-x", "-R", "90,90,20,20"}).exit, 0);
    EXPECT_EQ(image().pixel(10, 10), patternAt(100, 100) | 0xff000000);
    ASSERT_EQ(run({"-x", "-C", "-R", "90,90,20,20"}).exit, 0);
    EXPECT_EQ(image().pixel(10, 10), qRgb(255, 0, 0));
}

TEST_F(ScreenshotToolTest, FailuresLeaveOneLineAndNoFile)
{
    const auto window = QString::number(screen.show({.pixels = {0, 0, 50, 50}, .colour = Qt::red}));
    ASSERT_EQ(run({"-l", window, "-o"}).exit, 0);
    EXPECT_EQ(image().pixel(49, 49), qRgb(255, 0, 0));
    QFile::remove(path);

    struct Case {
        QStringList options;
        int exit;
    };

    const Case cases[] = {
        {{"-l", "123456789"}, 4},
        {{"-R", "2000,0,10,10"}, 4},
        {{"-R", "0,0,10"}, 2},
        {{"-q"}, 2},
    };
    for (const Case& c : cases) {
        const Run failed = run(c.options);
        EXPECT_EQ(failed.exit, c.exit) << c.options.join(' ').toStdString();
        EXPECT_EQ(failed.errors.count('\n'), 1);
    }
    path = "/nowhere/shot.tiff";
    EXPECT_EQ(run({"-R", "0,0,10,10"}).exit, 4);
    path = folder / "shot.tiff";
    display = ":32767";
    EXPECT_EQ(run({"-R", "0,0,10,10"}).exit, 4);
    EXPECT_TRUE(folder.files().isEmpty());
}

TEST_F(ScreenshotToolTest, AClickTakesTheWindowUnderThePointer)
{
    screen.show({.pixels = {100, 100, 300, 200}, .colour = Qt::blue});
    screen.show({.pixels = {200, 150, 100, 100}, .colour = Qt::red});
    QProcess process;
    startPicking(process);
    screen.click({120, 120});
    EXPECT_EQ(end(process).exit, 0);
    EXPECT_EQ(image().size(), QSize(300, 200));
    EXPECT_EQ(image().pixel(150, 100), QColor(Qt::blue).rgb()) << "as if nothing covered it";
}

TEST_F(ScreenshotToolTest, ThePickerIsCancelledByEscapeAndByTheRightButton)
{
    screen.show({.pixels = {100, 100, 300, 200}, .colour = Qt::blue});
    for (const bool isByKey : {true, false}) {
        QProcess process;
        startPicking(process);
        if (isByKey)
            screen.typeEscape();
        else
            screen.click({120, 120}, 3);
        EXPECT_EQ(end(process).exit, 1);
        EXPECT_TRUE(folder.files().isEmpty());
    }
}

} // namespace Kovrel
