#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>

namespace Kovrel {

using Testing::UserSession;

namespace {

constexpr QColor paper(200, 120, 40);

QString picture(UserSession& session, QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(paper);
    const QString path = session.path("paper.png");
    image.save(path);
    return path;
}

bool standsAt(const Testing::PaintedScreen& screen, const QRect& pixels)
{
    return UserSession::eventually([&] { return screen.panels() == std::vector{pixels}; });
}

bool shows(const Testing::PaintedScreen& screen, QPoint pixel, bool isPaper)
{
    return UserSession::eventually([&] { return (screen.pixelAt(pixel) == (paper.rgb() & RGB_MASK)) == isPaper; });
}

} // namespace

TEST(PinTest, APictureIsMovedResizedCapturedAndClosed)
{
    Testing::VirtualDisplay display;
    display.run("openbox", {"--sm-disable"}, "WM_S0");
    Testing::PaintedScreen screen(display.name());
    screen.movePointer({10, 10});
    UserSession session(&display);
    session.prepare({"showCursorInCapture=false"});

    ASSERT_EQ(session.kovrel({"pin", picture(session, {300, 200})}).exitCode, 0);
    ASSERT_TRUE(standsAt(screen, {490, 300, 300, 200}));
    for (const QPoint corner : {QPoint(490, 300), QPoint(789, 300), QPoint(490, 499), QPoint(789, 499)})
        EXPECT_TRUE(shows(screen, corner, true));
    EXPECT_TRUE(shows(screen, {490, 500}, false));

    screen.drag({640, 400}, {740, 450});
    EXPECT_TRUE(standsAt(screen, {590, 350, 300, 200}));
    screen.drag({885, 545}, {1035, 600});
    EXPECT_TRUE(standsAt(screen, {590, 350, 450, 300}));
    screen.drag({592, 500}, {565, 400});
    EXPECT_TRUE(standsAt(screen, {563, 350, 477, 318}));

    const QPoint close(563 + 21, 350 + 21);
    screen.movePointer({700, 450});
    EXPECT_TRUE(shows(screen, close, false)) << "its buttons";
    const QString shot = session.path("shot.png");
    ASSERT_EQ(session.kovrel({"capture", "fullScreen", "--output", shot}).exitCode, 0);
    const QImage captured(shot);
    EXPECT_EQ(captured.pixelColor(700, 450), paper) << "what was put on the screen is in the picture";
    EXPECT_EQ(captured.pixelColor(close), paper) << "its buttons are not";
    screen.movePointer({702, 451});
    EXPECT_TRUE(shows(screen, close, false)) << "they come back";

    screen.click(close);
    EXPECT_TRUE(shows(screen, {700, 450}, false));
    const auto recorded = QJsonDocument::fromJson(session.kovrel({"history", "--json"}).output).array();
    EXPECT_EQ(recorded.size(), 2) << "the pinned picture stays in the history";
    EXPECT_EQ(session.kovrel({"pin", session.path("missing.png")}).exitCode, 4);
}

TEST(PinTest, KeepsItsSizeInPointsOnDisplaysOfAnotherScaleAndComesBackToThem)
{
    Testing::VirtualDisplay display({2560, 800});
    const std::vector<Testing::VirtualDisplay::Monitor> both{{"LEFT", {0, 0, 1280, 800}},
                                                             {"RIGHT", {1280, 0, 1280, 800}}};
    display.setMonitors(both);
    Testing::PaintedScreen screen(display.name());
    screen.movePointer({10, 10});
    UserSession session(&display);
    session.setVariable("QT_SCREEN_SCALE_FACTORS", "LEFT=1;RIGHT=2");
    session.prepare();
    ASSERT_EQ(session.kovrel({"pin", picture(session, {300, 200})}).exitCode, 0);
    ASSERT_TRUE(standsAt(screen, {490, 300, 300, 200}));

    screen.drag({640, 400}, {1900, 400});
    const QRect onRight(1900 - 300, 200, 600, 400);
    EXPECT_TRUE(standsAt(screen, onRight));
    for (const QPoint corner : {onRight.topLeft(), onRight.bottomRight()})
        EXPECT_TRUE(shows(screen, corner, true));
    screen.drag({1900, 400}, {1920, 430});
    EXPECT_TRUE(standsAt(screen, onRight.translated(20, 30)));

    display.setMonitors({both.front()});
    EXPECT_TRUE(standsAt(screen, {340, 230, 300, 200}));
    display.setMonitors(both);
    EXPECT_TRUE(standsAt(screen, onRight.translated(20, 30)));
}

} // namespace Kovrel
