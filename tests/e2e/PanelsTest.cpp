#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::UserSession;

TEST(PanelsTest, AToastStandsAtItsPlaceOnDisplaysOfEveryScale)
{
    Testing::VirtualDisplay display({2560, 800});
    display.setMonitors({{"LEFT", {0, 0, 1280, 800}}, {"RIGHT", {1280, 0, 1280, 800}}});
    Testing::PaintedScreen screen(display.name());
    UserSession session(&display);
    session.setVariable("QT_SCREEN_SCALE_FACTORS", "LEFT=1.25;RIGHT=2");
    session.prepare({"selfTimerSeconds=60"});

    struct Case {
        QPoint pointer;
        QRect card;
    };

    for (const Case& c : {Case{{100, 100}, {835, 13, 430, 80}}, Case{{1500, 100}, {1848, 20, 688, 128}}}) {
        screen.movePointer(c.pointer);
        QProcess& countdown = session.startKovrel({"capture", "timed", "--wait"});
        EXPECT_TRUE(UserSession::eventually([&] { return screen.panels() == std::vector{c.card}; }));
        EXPECT_TRUE(UserSession::eventually([&] {
            screen.typeEscape();
            return countdown.waitForFinished(50);
        }));
        EXPECT_TRUE(UserSession::eventually([&] { return screen.panels().empty(); }));
    }
}

} // namespace Kovrel
