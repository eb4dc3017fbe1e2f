#include "ui/FloatingPanel.h"

#include "tests/support/desktop/FakePanelShapes.h"
#include "ui/tokens/Motion.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

constexpr QSizeF cardSize(200, 50);

Testing::FakePanelShapes shapes;

struct Panel : FloatingPanel {
    explicit Panel(bool isComposited, Desktops desktops = Desktops::every)
        : FloatingPanel(shapes, isComposited, desktops)
    {
        placeAtTopRight({.name = QGuiApplication::primaryScreen()->name()}, cardSize, {12, 10});
    }

    void paintContent(QPainter&, const QRectF& card) override { painted = card; }

    QRectF painted;
};

QImage picture(Panel& panel)
{
    QImage image(panel.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    panel.render(&image, {}, {}, {});
    return image;
}

} // namespace

TEST(FloatingPanelTest, TheCardStandsAtTheUpperRightWithItsShadowAroundIt)
{
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    for (const bool isComposited : {true, false}) {
        Panel panel(isComposited);
        const QImage image = picture(panel);
        const QRectF card = panel.painted.translated(panel.geometry().topLeft());
        EXPECT_NEAR(area.right() - card.right(), 12, 1);
        EXPECT_NEAR(card.top() - area.top(), 10, 1);
        EXPECT_NEAR(card.width(), cardSize.width(), 1);
        EXPECT_EQ(image.pixelColor(panel.painted.center().toPoint()).alpha(), 255);
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), isComposited ? 0 : 255);
        EXPECT_EQ(panel.testAttribute(Qt::WA_TranslucentBackground), isComposited);
        panel.show();
        EXPECT_EQ(shapes.inputs[panel.winId()], panel.painted.toAlignedRect()) << "the shadow takes no clicks";
    }
}

TEST(FloatingPanelTest, NeverTakesTheFocusAndIsOnEveryDesktopWhereAsked)
{
    const Panel everywhere(true, FloatingPanel::Desktops::every);
    const Panel here(true, FloatingPanel::Desktops::current);
    for (const Panel* panel : {&everywhere, &here}) {
        EXPECT_TRUE(panel->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
        EXPECT_TRUE(panel->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        EXPECT_TRUE(panel->testAttribute(Qt::WA_ShowWithoutActivating));
    }
    EXPECT_TRUE(everywhere.windowFlags().testFlag(Qt::BypassWindowManagerHint));
    EXPECT_FALSE(here.windowFlags().testFlag(Qt::BypassWindowManagerHint));
}

TEST(FloatingPanelTest, WithoutMotionItIsThereAndGoneAtOnce)
{
    Motion::shared().setReduced(true);
    const QPointer panel(new Panel(true));
    panel->popIn();
    EXPECT_EQ(panel->windowOpacity(), 1);
    panel->fadeOut();
    EXPECT_FALSE(panel->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(panel.isNull());
    Motion::shared().setReduced(false);
}

} // namespace Kovrel
