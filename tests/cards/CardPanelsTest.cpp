#include "cards/panels/CardPanels.h"
#include "cards/QuickAccessController.h"
#include "cards/panels/CardButton.h"
#include "cards/panels/CodeMenu.h"
#include "cards/panels/CodePill.h"
#include "tests/support/FakeCaptureServices.h"
#include "tests/support/TestPictures.h"
#include "ui/tokens/Motion.h"

#include <QApplication>
#include <QDrag>
#include <QEnterEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <gtest/gtest.h>

#include <qpa/qplatformwindow.h>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

QUuid id(uint number)
{
    return QUuid(number, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
}

// Real windows without a display, the clock in the test's hand.
struct CardPanelsTest : testing::Test {
    Testing::FakeCaptureServices fake;
    Testing::FakeMainLoop& loop = fake.loop;
    Testing::FakeDisplays& displays = fake.desktop.displays();
    CardPanels panels{{fake.loop, fake.preferences, displays, fake.desktop.panelShapes()}};
    QuickAccessController controller{
        {fake.loop, fake.workers, fake.preferences, displays, fake.ports, fake.folder / "tmp"}, panels};

    CardPanelsTest()
    {
        fake.preferences.set(Settings::previewDurationSeconds, -1.0);
        const Rect frame{0, 0, 800, 600};
        displays.displays = {{.id = 1,
                              .name = QGuiApplication::primaryScreen()->name(),
                              .frame = frame,
                              .visibleFrame = frame,
                              .pixelRect = {0, 0, 800, 600},
                              .isPrimary = true}};
        panels.setController(controller);
        controller.start();
    }

    void settle()
    {
        do
            loop.runPosted();
        while (fake.workers.runAll() > 0);
        loop.runPosted();
    }

    void present(uint number)
    {
        controller.present({.result = {.id = id(number),
                                       .image = Testing::testPicture({408, 256}, Testing::Texture::blocks),
                                       .pixelScale = 1}});
        settle();
    }

    void arrive() { loop.advance(2s); }

    CardPanel& panel(uint number) const { return *panels.panel(id(number)); }

    // Of the card, without its shadow.
    QRect place(uint number)
    {
        const QRect card = fake.desktop.panelShapes().inputs.at(panel(number).winId()).boundingRect();
        return card.translated(panel(number).windowHandle()->handle()->geometry().topLeft());
    }

    void point(uint number)
    {
        QEnterEvent enter({}, {}, {});
        QCoreApplication::sendEvent(&panel(number), &enter);
        settle();
    }

    void leave(uint number)
    {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(&panel(number), &event);
    }

    void mouse(uint number, QEvent::Type type, QPointF global, Qt::MouseButtons held = Qt::LeftButton)
    {
        QMouseEvent event(type, {50, 50}, global, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, {});
        QCoreApplication::sendEvent(&panel(number), &event);
    }

    CardButton* button(uint number, const QString& title) const
    {
        for (CardButton* found : panel(number).findChildren<CardButton*>())
            if (found->accessibleName() == title)
                return found;
        return nullptr;
    }

    static int windows()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        int count = 0;
        for (const QWidget* widget : QApplication::topLevelWidgets())
            count += qobject_cast<const CardPanel*>(widget) != nullptr;
        return count;
    }
};

} // namespace

TEST_F(CardPanelsTest, FliesIntoItsCornerAndRestsThere)
{
    present(1);
    EXPECT_LT(place(1).left(), 568);
    EXPECT_LT(panel(1).windowOpacity(), 1);
    arrive();
    EXPECT_EQ(place(1), QRect(568, 444, 216, 140));
    EXPECT_EQ(panel(1).windowOpacity(), 1);
    EXPECT_TRUE(panel(1).isVisible());
    EXPECT_EQ(loop.pendingTimers(), 0u) << "at rest nothing wakes up";

    present(2);
    arrive();
    EXPECT_EQ(place(2), QRect(568, 444, 216, 140));
    EXPECT_EQ(place(1), QRect(568, 292, 216, 140));
    controller.remove(id(2));
    EXPECT_EQ(windows(), 2) << "it fades";
    arrive();
    EXPECT_EQ(windows(), 1);
    EXPECT_EQ(place(1), QRect(568, 444, 216, 140));
}

TEST_F(CardPanelsTest, WithoutACompositorOrMotionItIsThereAndGoneAtOnce)
{
    displays.hasCompositor = false;
    present(1);
    EXPECT_EQ(place(1), QRect(568, 444, 216, 140));
    controller.remove(id(1));
    EXPECT_EQ(windows(), 0);
    displays.hasCompositor = true;
    Motion::shared().setReduced(true);
    present(2);
    EXPECT_EQ(place(2), QRect(568, 444, 216, 140));
    controller.remove(id(2));
    EXPECT_EQ(windows(), 0);
    Motion::shared().setReduced(false);
}

TEST_F(CardPanelsTest, ACaptureSeesNoneNotEvenOneThatFades)
{
    present(1);
    present(2);
    arrive();
    controller.remove(id(1));
    EXPECT_TRUE(controller.setHiddenForCapture(true));
    EXPECT_EQ(windows(), 1);
    EXPECT_FALSE(panel(2).isVisible());
    present(3);
    EXPECT_FALSE(panel(3).isVisible()) << "one that comes meanwhile waits";
    controller.setHiddenForCapture(false);
    EXPECT_TRUE(panel(2).isVisible());
    EXPECT_TRUE(panel(3).isVisible());
}

TEST_F(CardPanelsTest, ItsWindowIsOpenBeforeItComesAndUnseen)
{
    const auto opened = [] {
        CardPanel* found = nullptr;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* card = qobject_cast<CardPanel*>(widget); card && card->isVisible())
                found = card;
        return found;
    };
    controller.prepareForIncomingCapture(1);
    CardPanel* const early = opened();
    ASSERT_TRUE(early);
    EXPECT_EQ(early->windowOpacity(), 0);
    EXPECT_TRUE(fake.desktop.panelShapes().inputs.at(early->winId()).isEmpty()) << "it is not there for the pointer";
    QImage seen(8, 8, QImage::Format_ARGB32_Premultiplied);
    seen.fill(Qt::transparent);
    early->render(&seen, {}, {}, QWidget::DrawChildren);
    EXPECT_EQ(seen.pixelColor(0, 0).alpha(), 0) << "whatever the compositor makes of it";
    present(1);
    arrive();
    EXPECT_EQ(early, &panel(1));
    EXPECT_EQ(place(1), QRect(568, 444, 216, 140));
    controller.remove(id(1));
    arrive();
    EXPECT_EQ(windows(), 0);

    controller.prepareForIncomingCapture(1);
    controller.settleAfterAbandonedCapture();
    EXPECT_FALSE(opened());
    controller.prepareForIncomingCapture(1);
    controller.setHiddenForCapture(true);
    present(2);
    EXPECT_FALSE(opened()) << "a capture is under way";
    displays.hasCompositor = false;
    controller.prepareForIncomingCapture(1);
    EXPECT_FALSE(opened()) << "nothing would hide it";
}

TEST_F(CardPanelsTest, OnlyRingsThatCanBeToldApartWakeUp)
{
    fake.preferences.set(Settings::previewDurationSeconds, 30.0);
    present(1);
    arrive();
    EXPECT_EQ(loop.pendingTimers(), 2u) << "its end, and the ring";
    point(1);
    EXPECT_EQ(loop.pendingTimers(), 0u);
    leave(1);
    EXPECT_EQ(loop.pendingTimers(), 2u);
    fake.preferences.set(Settings::previewDurationSeconds, 3600.0);
    EXPECT_EQ(loop.pendingTimers(), 2u) << "a slow ring turns, too";
    controller.setHiddenForCapture(true);
    EXPECT_EQ(loop.pendingTimers(), 0u);
}

TEST_F(CardPanelsTest, WhoLooksFindsWhatCanBeDone)
{
    present(1);
    arrive();
    EXPECT_FALSE(button(1, "Copy")->isVisible());
    point(1);
    EXPECT_TRUE(button(1, "Copy")->isVisible());
    EXPECT_TRUE(button(1, "Edit"));
    EXPECT_EQ(controller.hoveredCardID(), id(1));
    button(1, "Copy")->click();
    settle();
    EXPECT_TRUE(fake.logged("copy"));
    button(1, "Save")->click();
    settle();
    EXPECT_TRUE(button(1, "Saved"));
    button(1, "Keep Until Closed")->click();
    EXPECT_TRUE(controller.card(id(1)));
    EXPECT_TRUE(panel(1).look().isFrozen);
    button(1, "Close")->click();
    EXPECT_FALSE(controller.hasCards());
    fake.ports.editors = {};
    present(2);
    EXPECT_FALSE(button(2, "Edit")) << "nobody could do it";
}

TEST_F(CardPanelsTest, ItIsMirroredForThoseWhoReadFromTheRight)
{
    const auto order = [&] {
        point(1);
        std::vector<int> lefts;
        for (const char* title : {"Keep Until Closed", "Close", "Copy", "Edit"})
            lefts.push_back(button(1, title)->x());
        return lefts;
    };
    present(1);
    const std::vector<int> usual = order();
    EXPECT_TRUE(usual[0] < usual[1] && usual[2] < usual[3]);
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    leave(1);
    const std::vector<int> mirrored = order();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    EXPECT_TRUE(mirrored[0] > mirrored[1] && mirrored[2] > mirrored[3]);
    EXPECT_EQ(mirrored[1], usual[0]) << "as far from the edge";
}

TEST_F(CardPanelsTest, GoesWithThePointerTowardsTheEdgeAndBackIfThatWasNotFar)
{
    present(1);
    arrive();
    mouse(1, QEvent::MouseButtonPress, {600, 500});
    mouse(1, QEvent::MouseMove, {640, 502});
    EXPECT_EQ(place(1).left(), 608);
    mouse(1, QEvent::MouseButtonRelease, {640, 502});
    arrive();
    EXPECT_EQ(place(1).left(), 568);
    mouse(1, QEvent::MouseButtonPress, {600, 500});
    mouse(1, QEvent::MouseMove, {620, 500});
    const QWindow* const window = panel(1).windowHandle();
    mouse(1, QEvent::MouseMove, {680, 500});
    mouse(1, QEvent::MouseButtonRelease, {680, 500});
    EXPECT_FALSE(controller.hasCards());
    loop.advance(100ms);
    EXPECT_GT(window->handle()->geometry().left(), 700) << "it goes on as it was pushed";
}

TEST_F(CardPanelsTest, DraggedOutItIsLeftUntilThePointerComesBack)
{
    present(1);
    arrive();
    point(1);
    ASSERT_TRUE(panel(1).look().dragFile);
    mouse(1, QEvent::MouseButtonPress, {700, 500});
    QTimer::singleShot(0, &QDrag::cancel);
    mouse(1, QEvent::MouseMove, {600, 400});
    EXPECT_EQ(controller.hoveredCardID(), std::nullopt) << "its shortcuts are other programs' again";
    EXPECT_FALSE(button(1, "Copy")->isVisible());
    mouse(1, QEvent::MouseMove, {700, 500}, {});
    EXPECT_EQ(controller.hoveredCardID(), id(1)) << "nobody tells of its coming when it has never left";
    EXPECT_TRUE(button(1, "Copy")->isVisible());
}

TEST_F(CardPanelsTest, ACodeIsReadBeforeItIsOpened)
{
    fake.codesFound = {{QRCode{.payload = "https://example.org/x", .boundingBox = {}}}};
    QUrl opened;
    QObject::connect(&panels, &CardPanels::linkWanted, [&](const QUrl& url) { opened = url; });
    present(1);
    arrive();
    panel(1).findChild<CodePill*>()->click();
    EXPECT_TRUE(opened.isEmpty()) << "a click shows what it says";
    auto* menu = qobject_cast<CodeMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    menu->actions().at(2)->trigger();
    EXPECT_EQ(opened, QUrl("https://example.org/x"));
    menu->close();
    EXPECT_EQ(CodeMenu({"javascript:alert(1)"}).actions().size(), 3) << "what it says, a line, Copy Text";
}

TEST_F(CardPanelsTest, AChangeOfScreensMakesItsWindowAnew)
{
    present(1);
    arrive();
    DisplayList changed = displays.displays;
    changed[0].visibleFrame.width = 700;
    displays.change(changed);
    arrive();
    EXPECT_EQ(place(1).left(), 468);
    displays.change({});
    EXPECT_FALSE(panels.panel(id(1)));
    displays.change(changed);
    arrive();
    EXPECT_EQ(place(1).left(), 468);
}

} // namespace Kovrel
