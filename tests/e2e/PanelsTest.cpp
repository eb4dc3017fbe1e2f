#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Testing::UserSession;

// Where windows stand that no window manager places.
std::vector<QRect> panelsOn(const Testing::PaintedScreen& screen)
{
    xcb_connection_t* x = screen.connection();
    std::vector<QRect> panels;
    xcb_query_tree_reply_t* tree = xcb_query_tree_reply(x, xcb_query_tree(x, screen.root()), nullptr);
    for (int index = 0; index < xcb_query_tree_children_length(tree); ++index) {
        const xcb_window_t window = xcb_query_tree_children(tree)[index];
        auto* attributes = xcb_get_window_attributes_reply(x, xcb_get_window_attributes(x, window), nullptr);
        auto* geometry = xcb_get_geometry_reply(x, xcb_get_geometry(x, window), nullptr);
        if (attributes && geometry && attributes->override_redirect && attributes->map_state == XCB_MAP_STATE_VIEWABLE)
            panels.push_back({geometry->x, geometry->y, geometry->width, geometry->height});
        free(attributes);
        free(geometry);
    }
    free(tree);
    return panels;
}

} // namespace

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
        EXPECT_TRUE(UserSession::eventually([&] { return panelsOn(screen) == std::vector{c.card}; }));
        EXPECT_TRUE(UserSession::eventually([&] {
            screen.typeEscape();
            return countdown.waitForFinished(50);
        }));
        EXPECT_TRUE(UserSession::eventually([&] { return panelsOn(screen).empty(); }));
    }
}

} // namespace Kovrel
