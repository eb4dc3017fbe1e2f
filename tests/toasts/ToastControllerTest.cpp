#include "toasts/ToastController.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "toasts/ToastPanel.h"

#include <QApplication>
#include <QScreen>

#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

struct ToastControllerTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeDesktop desktop{loop};
    Testing::FakeDisplays& displays = desktop.displays();
    ToastController toasts{loop, displays, desktop.panelShapes()};

    void SetUp() override
    {
        displays.displays = {{.id = 1, .name = QGuiApplication::primaryScreen()->name(), .isPrimary = true}};
    }

    // What stands on the screen, fading ones aside.
    QString shown() const
    {
        for (const QWidget* widget : QApplication::topLevelWidgets())
            if (const auto* panel = qobject_cast<const ToastPanel*>(widget))
                if (panel->isVisible() && !panel->findChild<QObject*>("fade"))
                    return panel->accessibleName();
        return {};
    }
};

} // namespace

TEST_F(ToastControllerTest, LingersAsLongAsItsContentAsks)
{
    struct Case {
        ToastContent content;
        MainLoop::Milliseconds linger;
    };

    const Case cases[] = {
        {{.message = "plain"}, 1800ms},
        {{.message = "with an action", .onTap = [] {}}, 3500ms},
        {{.message = "its own", .onTap = [] {}, .dwell = 6}, 6000ms},
    };
    for (const Case& c : cases) {
        toasts.present(c.content, 1, false);
        loop.advance(c.linger - 1ms);
        EXPECT_EQ(shown(), c.content.message);
        loop.advance(1ms);
        EXPECT_EQ(shown(), QString());
    }
    toasts.present({.message = "working", .showsSpinner = true}, 1, false);
    loop.advance(1h);
    EXPECT_EQ(shown(), "working");
    toasts.update({.message = "done"}, false);
    loop.advance(1799ms);
    EXPECT_EQ(shown(), "done");
    loop.advance(1ms);
    EXPECT_EQ(shown(), QString());
}

TEST_F(ToastControllerTest, OneAtATimeAndNoneWithoutAScreen)
{
    toasts.present({.message = "first"}, 1, false);
    toasts.update({.message = "changed"}, false);
    EXPECT_EQ(shown(), "changed");
    toasts.present({.message = "second"}, 99, false);
    EXPECT_EQ(shown(), "second") << "an unknown display means the first one";
    toasts.dismiss(false);
    EXPECT_EQ(shown(), QString());
    displays.displays.clear();
    toasts.present({.message = "nowhere"}, 1, false);
    EXPECT_EQ(shown(), QString());
}

TEST_F(ToastControllerTest, IsGoneWhileACaptureRuns)
{
    EXPECT_FALSE(toasts.setHiddenForCapture(true)) << "nothing was on the screen";
    toasts.present({.message = "meanwhile", .dwell = 60}, 1, false);
    EXPECT_EQ(shown(), QString());
    EXPECT_TRUE(toasts.setHiddenForCapture(false));
    EXPECT_EQ(shown(), "meanwhile");
    loop.advance(1999ms);
    EXPECT_EQ(shown(), "meanwhile");
    loop.advance(1ms);
    EXPECT_EQ(shown(), QString()) << "at most two seconds are left after a capture";

    toasts.present({.message = "fading"}, 1, false);
    toasts.dismiss(true);
    EXPECT_TRUE(toasts.setHiddenForCapture(true)) << "one that fades out goes at once";
    EXPECT_FALSE(toasts.setHiddenForCapture(true));
}

} // namespace Kovrel
