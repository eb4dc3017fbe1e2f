#include "picking/LoupeScene.h"
#include "overlay/OverlayView.h"
#include "tests/support/PaintedSurfaces.h"
#include "tests/support/Patterns.h"
#include "tests/support/PictureDifference.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Kind = OverlayDecoration::Kind;

constexpr QRect screen(100, 200, 800, 600);

} // namespace

TEST(LoupeScene, StaysWholeOnTheScreenAndAsideOfThePointer)
{
    for (const double scale : {1.0, 1.5, 2.0}) {
        const Display display{.id = 1, .pixelRect = screen, .scale = scale};
        for (const QPoint pointer : {screen.topLeft(), screen.topRight(), screen.bottomLeft(), screen.bottomRight(),
                                     screen.center(), QPoint(500, screen.bottom() - 170)}) {
            const OverlayScene scene = LoupeScene::of(display, {.pointer = pointer, .widest = "#DDDDDD"});
            ASSERT_EQ(scene.decorations.size(), 2u);
            for (const OverlayDecoration& decoration : scene.decorations) {
                EXPECT_TRUE(screen.contains(decoration.rect)) << scale << " " << pointer.x() << "," << pointer.y();
                EXPECT_FALSE(decoration.rect.contains(pointer));
            }
            EXPECT_FALSE(scene.decorations[0].rect.intersects(scene.decorations[1].rect));
            EXPECT_EQ(scene.decorations[0].pixel, pointer);
        }
    }
    const Display display{.id = 1, .pixelRect = screen};
    EXPECT_EQ(LoupeScene::of(display, {.pointer = {50, 50}}), OverlayScene()) << "on another display";
}

TEST(LoupeScene, TheLabelKeepsItsPlaceWhileTheTextChanges)
{
    const Display display{.id = 1, .pixelRect = screen};
    const auto labelOf = [&](const QString& text) {
        return LoupeScene::of(display, {.pointer = {300, 300}, .text = text, .widest = "#DDDDDD"}).decorations[1];
    };
    EXPECT_EQ(labelOf("#111111").rect, labelOf("#DDDDDD").rect);
    EXPECT_EQ(labelOf("#111111").text, "#111111");
}

TEST(LoupeScene, AMoveRepaintsTheLoupeAlone)
{
    const QRect wide(0, 0, 3840, 2160);
    const Display display{.id = 1, .pixelRect = wide, .scale = 2};
    const QImage picture = Testing::pattern(wide.size()).convertToFormat(QImage::Format_RGB32);
    Testing::PaintedSurfaces surfaces(picture, wide, OverlaySurfaces::Ground::frozen, Qt::transparent);
    OverlayView view(surfaces, display, {.screen = picture});
    EXPECT_TRUE(Testing::identicalPicture(surfaces.shown, picture)) << "without shade";
    const auto show = [&](QPoint pointer) {
        const OverlayScene scene =
            LoupeScene::of(display, {.pointer = pointer, .text = "#102030", .widest = "#DDDDDD", .color = Qt::red});
        surfaces.painted = 0;
        view.show(scene);
        QRect loupe;
        for (const OverlayDecoration& decoration : scene.decorations)
            loupe |= decoration.region().boundingRect();
        return qint64(loupe.width()) * loupe.height();
    };
    const qint64 first = show({1000, 1000});
    EXPECT_LE(surfaces.painted, first);
    const qint64 moved = show({1003, 1002});
    EXPECT_LE(surfaces.painted, moved * 21 / 20) << "where it was and where it is";
    EXPECT_TRUE(Testing::identicalPicture(surfaces.shown, view.compose(wide)));
    show({3800, 40});
    EXPECT_LE(surfaces.painted, 2 * moved) << "to another corner";
    EXPECT_TRUE(Testing::identicalPicture(surfaces.shown, view.compose(wide)));
}

} // namespace Kovrel
