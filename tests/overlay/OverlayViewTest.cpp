#include "overlay/OverlayView.h"
#include "capture/selection/SelectionScene.h"
#include "tests/support/PaintedSurfaces.h"
#include "tests/support/Patterns.h"
#include "tests/support/PictureDifference.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

constexpr QRect displayPixels(300, 200, 640, 480);
using Ground = OverlaySurfaces::Ground;

} // namespace

TEST(OverlayView, EverySceneLooksAsIfPaintedAnewAndRepaintsOnlyWhatChanged)
{
    const Display display{.id = 1, .pixelRect = displayPixels, .scale = 1.5};
    const auto dragged = [](QPoint from, QPoint to) {
        return SelectionScene::Moment{.area = QRect(from, to), .isDragging = true, .pointer = to};
    };
    const SelectionScene::Moment moments[] = {
        {.pointer = QPoint(400, 300), .showsHint = true},
        dragged({400, 300}, {700, 500}),
        dragged({400, 300}, {705, 503}),
        dragged({400, 300}, {939, 679}),
        dragged({280, 190}, {500, 400}),
        {.isWindowMode = true,
         .windows = {{350, 250, 300, 200}, {650, 250, 100, 200}},
         .windowsInSight = QRegion(350, 250, 300, 150),
         .pointer = QPoint(400, 300),
         .showsHint = true},
        {.isWindowMode = true, .pointer = QPoint(2000, 300)},
        {},
    };
    const QImage screen = Testing::pattern(displayPixels.size()).convertToFormat(QImage::Format_RGB32);
    for (const Ground ground : {Ground::frozen, Ground::live}) {
        Testing::PaintedSurfaces surfaces(screen, displayPixels, ground, OverlayPainter::shade());
        OverlayView view(surfaces, display, {screen, ground, OverlayPainter::shade()});
        for (const auto& moment : moments) {
            SCOPED_TRACE(&moment - moments);
            view.show(SelectionScene::of(display, moment));
            const QImage expected = view.compose(displayPixels);
            EXPECT_TRUE(Testing::identicalPicture(surfaces.shown, expected));
        }
        surfaces.painted = 0;
        view.show(SelectionScene::of(display, moments[1]));
        const qint64 whole = surfaces.painted;
        surfaces.painted = 0;
        view.show(SelectionScene::of(display, moments[2]));
        EXPECT_LT(surfaces.painted, whole * 7 / 10) << "a move by some pixels";
        surfaces.painted = 0;
        view.show(SelectionScene::of(display, moments[2]));
        EXPECT_EQ(surfaces.painted, 0) << "nothing changed";
    }
}

TEST(OverlayView, ShowsOnlyWhatConcernsItsDisplay)
{
    const Display display{.id = 1, .pixelRect = displayPixels};
    const auto elsewhere = SelectionScene::of(
        display, {.area = QRect(0, 0, 50, 50), .isDragging = true, .pointer = QPoint(40, 40), .showsHint = true});
    EXPECT_TRUE(elsewhere.decorations.empty());
    EXPECT_TRUE(elsewhere.lit.isEmpty());
    const auto across =
        SelectionScene::of(display, {.area = QRect(0, 0, 500, 400), .isDragging = true, .pointer = QPoint(40, 40)});
    EXPECT_EQ(across.lit, QRegion(300, 200, 200, 200));
    for (const auto& decoration : across.decorations)
        EXPECT_NE(decoration.kind, OverlayDecoration::Kind::sizeLabel) << "the pointer is on another one";
}

} // namespace Kovrel
