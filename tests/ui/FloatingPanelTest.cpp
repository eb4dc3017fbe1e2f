#include "ui/FloatingPanel.h"

#include "tests/support/desktop/FakePanelShapes.h"
#include "ui/tokens/Motion.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPointer>
#include <QScreen>
#include <QWindow>

#include <gtest/gtest.h>

#include <qpa/qplatformwindow.h>

namespace Kovrel {

namespace {

Testing::FakePanelShapes shapes;

Display screenOfScale(double scale)
{
    return {.name = QGuiApplication::primaryScreen()->name(), .pixelRect = {0, 0, 800, 600}, .scale = scale};
}

struct Panel : FloatingPanel {
    explicit Panel(bool isComposited, Desktops desktops = Desktops::every)
        : FloatingPanel(shapes, isComposited, desktops)
    {
        place(screenOfScale(1), {400, 10, 200, 50});
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

TEST(FloatingPanelTest, TheCardHasItsShadowAroundItAndTakesTheClicksAlone)
{
    for (const bool isComposited : {true, false}) {
        Panel panel(isComposited);
        const QImage image = picture(panel);
        EXPECT_EQ(panel.painted.size(), QSizeF(200, 50));
        EXPECT_EQ(image.pixelColor(panel.painted.center().toPoint()).alpha(), 255);
        EXPECT_EQ(image.pixelColor(0, panel.height() - 1).alpha(), isComposited ? 0 : 255);
        EXPECT_EQ(panel.testAttribute(Qt::WA_TranslucentBackground), isComposited);
        panel.show();
        EXPECT_EQ(shapes.inputs[panel.winId()], panel.painted.toAlignedRect()) << "the shadow takes no clicks";
    }
}

TEST(FloatingPanelTest, TheShadowEndsWithTheDisplayAndTheCardDoesNot)
{
    struct Case {
        double scale;
        QRect card; // root pixels
        QRect panel;
    };

    const Case cases[] = {
        {1, {200, 200, 200, 50}, {170, 170, 260, 110}},    {1, {590, 10, 200, 50}, {560, -20, 260, 110}},
        {1, {700, -20, 200, 50}, {670, -50, 260, 110}},    {2, {200, 200, 200, 50}, {140, 140, 320, 170}},
        {1.25, {200, 200, 200, 50}, {162, 162, 276, 126}},
    };
    for (const Case& c : cases) {
        Panel panel(true);
        panel.place(screenOfScale(c.scale), c.card);
        EXPECT_EQ(panel.windowHandle()->handle()->geometry(), c.panel) << c.scale;
        const QImage image = picture(panel);
        EXPECT_EQ(panel.painted.topLeft() * c.scale, QPointF(c.card.topLeft() - c.panel.topLeft()));
        EXPECT_EQ(panel.painted.size() * c.scale, QSizeF(c.card.size()));
        EXPECT_EQ(shapes.inputs[panel.winId()].boundingRect(), c.card.translated(-c.panel.topLeft()));
        const QPointF besideCard = panel.painted.center() + QPointF(panel.painted.width() / 2 + 3, 0);
        const bool isOnDisplay = c.panel.left() + besideCard.x() * c.scale < 800;
        EXPECT_EQ(image.pixelColor(besideCard.toPoint()).alpha() > 0, isOnDisplay);
    }
}

// Of a card that moves along the edge of a display little is painted anew.
TEST(FloatingPanelTest, APanelKeepsItsSizeAndItsPixelsWhereItsShadowEndsElsewhere)
{
    struct MovingPanel : Panel {
        using Panel::Panel;

        void paintEvent(QPaintEvent* event) override
        {
            repainted |= event->region();
            Panel::paintEvent(event);
        }

        QRegion repainted;
    };

    MovingPanel panel(true);
    panel.place(screenOfScale(1), {590, 300, 200, 50});
    panel.show();
    QApplication::processEvents();
    const QSize size = panel.size();
    panel.repainted = {};
    panel.place(screenOfScale(1), {580, 280, 200, 50});
    QApplication::processEvents();
    EXPECT_EQ(panel.size(), size);
    EXPECT_EQ(panel.repainted.boundingRect(), QRect(240, 0, 10, size.height()));
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
