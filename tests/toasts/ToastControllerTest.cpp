#include "toasts/ToastController.h"
#include "ports/CaptureEffects.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "toasts/ToastPanel.h"
#include "ui/tokens/Motion.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>

#include <gtest/gtest.h>

#include <qpa/qplatformwindow.h>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

struct Effects : CaptureEffects {
    int toasts = 0;

    void prewarm() override {}

    void playShutterIfEnabled() override {}

    void playToastIfEnabled() override { ++toasts; }

    void previewShutter() override {}

    void previewVolume() override {}

    void applyVolume() override {}
};

struct ToastControllerTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeDesktop desktop{loop};
    Testing::FakeDisplays& displays = desktop.displays();
    Effects effects;
    Ports ports;
    ToastController toasts{loop, displays, desktop.panelShapes(), ports};

    void SetUp() override
    {
        displays.displays = {{.id = 1,
                              .name = QGuiApplication::primaryScreen()->name(),
                              .frame = {0, 0, 800, 600},
                              .pixelRect = {0, 0, 800, 600},
                              .isPrimary = true}};
        ports.effects.offer(effects);
        Motion::shared().setReduced(true);
    }

    void TearDown() override { Motion::shared().setReduced(false); }

    // What stands on the screen, fading ones aside.
    ToastPanel* panel() const
    {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* panel = qobject_cast<ToastPanel*>(widget))
                if (panel->isVisible() && !panel->findChild<QObject*>("fade"))
                    return panel;
        return nullptr;
    }

    QString shown() const { return panel() ? panel()->accessibleName() : QString(); }

    void movePointer(bool isInside)
    {
        QEnterEvent enter({100, 40}, {}, {});
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(panel(), isInside ? &enter : &leave);
    }

    // Root pixels; the panel ends at the display's upper right corner.
    void click(QPoint pixel, Qt::MouseButton button = Qt::LeftButton, int times = 1)
    {
        const QRegion input = desktop.panelShapes().inputs[panel()->winId()];
        const QPointF point = pixel - panel()->windowHandle()->handle()->geometry().topLeft();
        if (!input.contains(point.toPoint()))
            return;
        for (int time = 0; time < times; ++time)
            for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
                QMouseEvent event(type, point, point, button, button, {});
                QCoreApplication::sendEvent(panel(), &event);
            }
        QCoreApplication::sendPostedEvents();
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

    Motion::shared().setReduced(false);
    toasts.present({.message = "fading"}, 1, false);
    toasts.dismiss(true);
    EXPECT_TRUE(toasts.setHiddenForCapture(true)) << "one that fades out goes at once";
    EXPECT_FALSE(toasts.setHiddenForCapture(true));
}

TEST_F(ToastControllerTest, FadedOutItIsEmptyForCompositorsThatFadeWhatWasHidden)
{
    struct Witness : QObject {
        QImage lastSeen;

        bool eventFilter(QObject* window, QEvent* event) override
        {
            if (event->type() == QEvent::Hide)
                lastSeen = static_cast<QWidget*>(window)->grab().toImage();
            return false;
        }
    } witness;

    toasts.present({.message = "one"}, 1, false);
    panel()->installEventFilter(&witness);
    ASSERT_NE(panel()->grab().toImage().pixel(100, 40), 0u);
    toasts.dismiss(true);
    EXPECT_EQ(witness.lastSeen.pixel(100, 40), 0u);
}

TEST_F(ToastControllerTest, StaysWhileThePointerIsOnItAndForAtMostTwoSecondsMore)
{
    for (const auto& [linger, rest] : {std::pair{3.5, 2000ms}, std::pair{1.0, 1000ms}}) {
        toasts.present({.message = "read", .dwell = linger}, 1, false);
        movePointer(true);
        loop.advance(1h);
        toasts.update({.message = "changed", .dwell = linger}, false);
        loop.advance(1h);
        EXPECT_EQ(shown(), "changed");
        movePointer(false);
        loop.advance(rest - 1ms);
        EXPECT_EQ(shown(), "changed");
        loop.advance(1ms);
        EXPECT_EQ(shown(), QString());
    }
    toasts.present({.message = "the next one is not held by the one before", .dwell = 1}, 1, false);
    loop.advance(1s);
    EXPECT_EQ(shown(), QString());
}

TEST_F(ToastControllerTest, OnlyTheCardTakesClicksAndOnlyTheLeftButton)
{
    struct Case {
        QPoint pixel;
        Qt::MouseButton button;
        QString done;
    };

    // The card covers 444,10 to 788,74, the close button its upper left corner.
    const Case cases[] = {
        {{600, 40}, Qt::LeftButton, "tapped"}, {{600, 40}, Qt::RightButton, ""},
        {{600, 40}, Qt::MiddleButton, ""},     {{600, 80}, Qt::LeftButton, ""},
        {{430, 40}, Qt::LeftButton, ""},       {{444, 10}, Qt::LeftButton, "closed"},
        {{429, 25}, Qt::LeftButton, "closed"}, {{460, 26}, Qt::LeftButton, "closed"},
        {{444, 10}, Qt::RightButton, ""},      {{462, 28}, Qt::LeftButton, "tapped"},
    };
    for (const Case& c : cases) {
        QString done;
        toasts.present({.message = "a link", .onTap = [&] { done += "tapped"; }, .onClose = [&] { done += "closed"; }},
                       1, false);
        click(c.pixel, c.button, 2);
        EXPECT_EQ(done, c.done) << c.pixel.x() << ',' << c.pixel.y() << ' ' << c.button;
        EXPECT_EQ(shown().isEmpty(), !c.done.isEmpty());
    }
}

TEST_F(ToastControllerTest, ATapMayPresentTheNextToast)
{
    int taps = 0;
    const auto onTap = [&] {
        ++taps;
        toasts.present({.message = "opened"}, 1, false);
        toasts.dismiss(false);
        toasts.present({.message = "opened again"}, 1, false);
    };
    toasts.present({.message = "a link", .onTap = onTap}, 1, false);
    click({600, 40}, Qt::LeftButton, 2);
    EXPECT_EQ(taps, 1);
    EXPECT_EQ(shown(), "opened again");
}

TEST_F(ToastControllerTest, IsHeardWhereItShallBeButNotWhileSomethingIsUnderWay)
{
    toasts.present({.message = "silent"}, 1, false);
    toasts.present({.message = "working", .showsSpinner = true}, 1, true);
    EXPECT_EQ(effects.toasts, 0);
    toasts.update({.message = "done"}, true);
    toasts.showSaved("/home/me/Documents/Kovrel/a.png", 1);
    EXPECT_EQ(effects.toasts, 2);
    EXPECT_EQ(shown(), "Saved to Kovrel");
}

TEST_F(ToastControllerTest, TakesNoClicksUntilItHasPoppedIn)
{
    Motion::shared().setReduced(false);
    toasts.present({.message = "coming"}, 1, false);
    EXPECT_TRUE(desktop.panelShapes().inputs[panel()->winId()].isEmpty());
    movePointer(true);
    loop.advance(1800ms);
    EXPECT_EQ(shown(), QString()) << "nor is it held";
}

} // namespace Kovrel
