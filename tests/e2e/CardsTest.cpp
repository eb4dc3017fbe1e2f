#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestKeyboard.h"

#include <QFileInfo>
#include <QPainter>
#include <QUrl>

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::sameColors;
using Testing::UserSession;

namespace {

const QSize screenSize(1280, 800);
// Where the first card stands, and in it its picture: the whole screen, small.
const QRect card(1048, 645, 216, 139);
const QRect picture = card.adjusted(6, 6, -6, -6);
const QPoint away(400, 300);

QImage redAndBlue()
{
    QImage screen(screenSize, QImage::Format_RGB32);
    screen.fill(Qt::red);
    QPainter(&screen).fillRect(640, 0, 640, 800, Qt::blue);
    return screen;
}

struct CardsTest : testing::Test {
    Testing::VirtualDisplay display{screenSize};
    QImage screen = redAndBlue();
    Testing::PaintedScreen painted{display.name()};
    UserSession session{&display};

    void SetUp() override
    {
        painted.setRootPicture(screen);
        painted.movePointer(away);
        session.prepare({"previewDurationSeconds=-1", "showCursorInCapture=false", "afterCaptureActions=1"});
    }

    bool shows(QPoint pixel, const QColor& color)
    {
        return UserSession::eventually([&] { return painted.pixelAt(pixel) == (color.rgb() & RGB_MASK); });
    }

    void capture()
    {
        ASSERT_EQ(session.kovrel({"capture", "fullScreen", "--wait"}).exitCode, 0);
        ASSERT_TRUE(isThere()) << "the screen is on the card";
    }

    // The left part of the screen is red, its right part is blue, and on the card's frame neither is.
    bool isThere() { return shows(leftOf(picture), Qt::red) && !isBlue(card.topLeft() + QPoint(30, 3)); }

    bool hasGone() { return shows(leftOf(picture), Qt::blue); }

    bool isBlue(QPoint pixel) const { return painted.pixelAt(pixel) == (QColor(Qt::blue).rgb() & RGB_MASK); }

    bool isRed(QPoint pixel) const { return painted.pixelAt(pixel) == (QColor(Qt::red).rgb() & RGB_MASK); }

    static QPoint leftOf(const QRect& rect) { return {rect.left() + rect.width() / 4, rect.center().y()}; }

    // What the target says when the card was dropped on it.
    QString draggedOutTo(QProcess& target, QPoint place)
    {
        QByteArray dropped;
        painted.movePointer(picture.center());
        // The card's file may not be there at first.
        for (int attempt = 0; attempt < 5 && dropped.isEmpty(); ++attempt) {
            painted.press(picture.center());
            // As slowly as a hand, so that both programs can agree on the way.
            for (int step = 0; step <= 20; ++step) {
                const QPoint at = picture.center() + (place - picture.center()) * std::min(step, 10) / 10;
                session.run("xdotool", {"mousemove", QString::number(at.x() + step), QString::number(at.y())});
            }
            painted.release();
            target.waitForReadyRead(1000);
            dropped = target.readAllStandardOutput();
        }
        return QString::fromUtf8(dropped).trimmed();
    }

    QByteArray clipboard() { return session.run("xclip", {"-selection", "clipboard", "-t", "image/png", "-o"}).output; }
};

} // namespace

TEST_F(CardsTest, ACaptureIsACardThatClosesAndComesBack)
{
    EXPECT_EQ(session.kovrel({"reopen"}).exitCode, 1) << "nothing was closed";
    capture();
    EXPECT_TRUE(session.savedFiles().isEmpty()) << "the card has it";

    painted.movePointer(leftOf(picture));
    EXPECT_TRUE(UserSession::eventually([&] { return !isRed(leftOf(picture)); })) << "its buttons lie on a shade";
    painted.click(picture.topRight() + QPoint(-18, 19)); // the close button
    EXPECT_TRUE(hasGone());
    painted.movePointer(away);
    EXPECT_EQ(session.kovrel({"reopen"}).exitCode, 0);
    EXPECT_TRUE(isThere());
    EXPECT_EQ(session.kovrel({"reopen"}).exitCode, 1) << "it has come back already";
}

TEST_F(CardsTest, NoCardIsInACapture)
{
    capture();
    const QString shot = session.path("shot.png");
    ASSERT_EQ(session.kovrel({"capture", "fullScreen", "--output", shot}).exitCode, 0);
    EXPECT_TRUE(sameColors(QImage(shot), screen));
    EXPECT_TRUE(isThere());
}

TEST_F(CardsTest, ShortcutsOfDocumentsActOnTheHoveredCardAndAPinBringsItBack)
{
    using Testing::TestKeyboard;
    TestKeyboard keyboard(display.name());
    const QRect pin(256, 160, 768, 480); // three fifths of the screen
    const auto isPinned = [&] { return std::ranges::count(painted.panels(), pin) == 1; };
    const auto hover = [&] {
        painted.movePointer(leftOf(picture));
        return UserSession::eventually([&] { return !isRed(leftOf(picture)); });
    };
    capture();
    keyboard.type({TestKeyboard::super, TestKeyboard::placeOfW});
    EXPECT_TRUE(hover()) << "it was not meant";
    // The keys are had a moment after the buttons are seen.
    EXPECT_TRUE(UserSession::eventually([&] {
        keyboard.type({TestKeyboard::super, TestKeyboard::placeOfC});
        return sameColors(QImage::fromData(clipboard()), screen);
    }));
    keyboard.type({TestKeyboard::super, TestKeyboard::placeOfP});
    EXPECT_TRUE(UserSession::eventually(isPinned));
    keyboard.type({TestKeyboard::super, TestKeyboard::placeOfW});
    EXPECT_TRUE(hasGone());

    painted.movePointer(pin.center());
    painted.click(pin.topRight() + QPoint(-20, 21));
    EXPECT_TRUE(UserSession::eventually([&] { return !isPinned(); }));
    painted.movePointer(away);
    EXPECT_TRUE(isThere());
}

TEST_F(CardsTest, TheProgramEndsInOrderWithCardsAndPinsOnTheScreen)
{
    QProcess& program = session.startKovrel({"--background"});
    ASSERT_TRUE(UserSession::eventually([&] { return session.instancePid() == program.processId(); }));
    capture();
    screen.save(session.path("screen.png"));
    ASSERT_EQ(session.kovrel({"pin", session.path("screen.png")}).exitCode, 0);
    painted.movePointer(leftOf(picture));
    session.kovrel({"quit"});
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
}

TEST_F(CardsTest, ItsMenuOpensAtTheRightButton)
{
    capture();
    const size_t before = painted.panels().size();
    painted.movePointer(picture.center());
    painted.click(picture.center(), 3);
    EXPECT_TRUE(UserSession::eventually([&] { return painted.panels().size() == before + 1; }));
    painted.typeEscape();
    EXPECT_TRUE(UserSession::eventually([&] { return painted.panels().size() == before; }));
}

TEST_F(CardsTest, ItsChordsWorkOnlyWhileThePointerIsOnIt)
{
    Testing::TestKeyboard keyboard(display.name());
    using enum Testing::TestKeyboard::Key;
    capture();
    EXPECT_TRUE(keyboard.grab(placeOfC, XCB_MOD_MASK_4)) << "another program may have the keys";
    keyboard.ungrab(placeOfC, XCB_MOD_MASK_4);
    painted.movePointer(leftOf(picture));
    EXPECT_TRUE(UserSession::eventually([&] {
        keyboard.type({super, placeOfC});
        return sameColors(QImage::fromData(clipboard()), screen);
    }));
    painted.movePointer(away);
    EXPECT_TRUE(UserSession::eventually([&] { return keyboard.grab(placeOfC, XCB_MOD_MASK_4); }));
    keyboard.ungrab(placeOfC, XCB_MOD_MASK_4);
    EXPECT_TRUE(isThere());
}

TEST_F(CardsTest, EachMonitorHasItsPileAtItsOwnScale)
{
    display.setMonitors({{"LEFT", {0, 0, 640, 800}}, {"RIGHT", {640, 0, 640, 800}}});
    session.setVariable("QT_SCREEN_SCALE_FACTORS", "LEFT=1;RIGHT=2");
    // Where the first card of a monitor has its left and its right edge, and a line through it.
    const auto isBetween = [&](int left, int right, int y) {
        const auto isFrame = [&](int x) {
            const QRgb pixel = painted.pixelAt({x, y});
            return qRed(pixel) > 200 && qGreen(pixel) > 200 && qBlue(pixel) > 200;
        };
        return UserSession::eventually(
            [&] { return isFrame(left + 3) && isFrame(right - 3) && !isFrame(left - 3) && !isFrame(right + 3); });
    };
    painted.movePointer({300, 300});
    session.kovrel({"capture", "fullScreen"});
    EXPECT_TRUE(isBetween(640 - 16 - 216, 640 - 16, 700));
    painted.movePointer({900, 300});
    session.kovrel({"capture", "fullScreen"});
    EXPECT_TRUE(isBetween(1280 - 2 * (16 + 216), 1280 - 2 * 16, 600));
    EXPECT_TRUE(isBetween(640 - 16 - 216, 640 - 16, 700)) << "the other stays";
    display.setMonitors({{"LEFT", {0, 0, 1280, 800}}});
    EXPECT_TRUE(isBetween(1280 - 16 - 216, 1280 - 16, 700)) << "they move to the one that is left";
}

TEST_F(CardsTest, ItsShadowIsItsOwn)
{
    display.run("picom", {"--backend", "xrender", "--config", "/dev/null", "--shadow"}, "_NET_WM_CM_S0");
    capture();
    const QPoint besideTheShadow(card.left() - 36, card.center().y());
    EXPECT_TRUE(shows(besideTheShadow, Qt::blue)) << "the compositor adds none";
    EXPECT_FALSE(isBlue(card.bottomLeft() + QPoint(60, 8)));
}

TEST_F(CardsTest, DraggedOutItIsAFileForAnotherProgram)
{
    for (const char* const program : {DROP_TARGET, LATE_DROP_TARGET}) {
        SCOPED_TRACE(program);
        QProcess& target = session.start(program, {});
        ASSERT_TRUE(shows({150, 100}, Qt::green));
        capture();
        const QString path = QUrl(draggedOutTo(target, {150, 100})).path();
        EXPECT_TRUE(QFileInfo(path).fileName().startsWith("Screenshot ")) << qPrintable(path);
        EXPECT_EQ(QImage(path).size(), screenSize);
        EXPECT_TRUE(isThere());
        target.kill();
        target.waitForFinished();
        ASSERT_TRUE(shows({150, 100}, Qt::red));
    }
}

TEST_F(CardsTest, TowardsTheEdgeItIsFlickedAway)
{
    capture();
    painted.movePointer(picture.center());
    painted.press(picture.center());
    for (int step = 1; step <= 9; ++step)
        painted.movePointer(picture.center() + QPoint(10 * step, step));
    painted.release();
    EXPECT_TRUE(hasGone());
}

TEST_F(CardsTest, ItsTimeIsUpBySaving)
{
    session.prepare({"previewDurationSeconds=1", "previewAutoCloseAction=saveAndClose"});
    ASSERT_EQ(session.kovrel({"capture", "fullScreen"}).exitCode, 0);
    ASSERT_TRUE(UserSession::eventually([&] { return session.savedFiles().size() == 1; }));
    EXPECT_TRUE(hasGone());
    EXPECT_TRUE(sameColors(QImage(session.saveFolder() + '/' + session.savedFiles().front()), screen));
}

} // namespace Kovrel
