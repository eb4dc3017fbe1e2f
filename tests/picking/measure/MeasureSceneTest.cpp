#include "picking/measure/MeasureScene.h"
#include "overlay/OverlayView.h"
#include "tests/support/PaintedSurfaces.h"
#include "tests/support/Patterns.h"
#include "tests/support/PictureDifference.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Kind = OverlayDecoration::Kind;
using Stretch = MeasureSampler::Run;

constexpr QRect screen(100, 200, 800, 600);

std::vector<OverlayDecoration> ofKind(const OverlayScene& scene, Kind kind)
{
    auto all = scene.decorations;
    std::erase_if(all, [&](const OverlayDecoration& decoration) { return decoration.kind != kind; });
    return all;
}

} // namespace

TEST(MeasureScene, LabelsTellBothLengthsAndLieAsideOfEachOther)
{
    const Stretch runs[] = {{0, 799}, {300, 310}, {0, 20}, {780, 799}, {250, 520}, {400, 400}};
    for (const double scale : {1.0, 2.0}) {
        const Display display{.id = 1, .pixelRect = screen, .scale = scale};
        for (const Stretch& row : runs)
            for (const Stretch& across : runs) {
                const Stretch column{across.lower * 3 / 4, across.upper * 3 / 4};
                const QPoint at((row.lower + row.upper) / 2, (column.lower + column.upper) / 2);
                SCOPED_TRACE(qPrintable(QString("%1: %2 %3").arg(scale).arg(row.lower).arg(column.lower)));
                const auto scene = MeasureScene::of(display, {.cross = MeasureReading::Cross{at, row, column}});
                const auto labels = ofKind(scene, Kind::sizeLabel);
                ASSERT_EQ(labels.size(), 2u);
                EXPECT_EQ(labels[0].text, QString("%1 px").arg(row.length()));
                EXPECT_EQ(labels[1].text, QString("%1 px").arg(column.length()));
                EXPECT_FALSE(labels[0].rect.intersects(labels[1].rect));
                for (const OverlayDecoration& label : labels)
                    EXPECT_TRUE(screen.contains(label.rect));
            }
    }
}

TEST(MeasureScene, GuidesReachFromEndToEndOfTheRuns)
{
    const Display display{.id = 1, .pixelRect = screen, .scale = 2};
    const auto scene = MeasureScene::of(
        display, {.cross = MeasureReading::Cross{{60, 50}, {40, 167}, {30, 53}}, .unit = MeasureUnit::points});
    QRect whole;
    for (const OverlayDecoration& guide : ofKind(scene, Kind::guide))
        whole |= guide.rect;
    EXPECT_EQ(whole.left(), screen.left() + 40);
    EXPECT_EQ(whole.right(), screen.left() + 167);
    EXPECT_EQ(ofKind(scene, Kind::sizeLabel)[0].text, "64 pt");
    EXPECT_EQ(ofKind(scene, Kind::sizeLabel)[1].text, "12 pt");
    const auto rect = MeasureScene::of(display, {.rect = QRect(10, 10, 129, 40), .unit = MeasureUnit::points});
    EXPECT_EQ(ofKind(rect, Kind::sizeLabel)[0].text, QString("64.5 \u00d7 20"));
    EXPECT_EQ(ofKind(rect, Kind::areaFrame)[0].rect, QRect(110, 210, 129, 40));
}

TEST(MeasureScene, AMoveRepaintsWhatChangedAlone)
{
    const QRect wide(0, 0, 3840, 2160);
    const Display display{.id = 1, .pixelRect = wide};
    const QImage picture = Testing::pattern(wide.size()).convertToFormat(QImage::Format_RGB32);
    Testing::PaintedSurfaces surfaces(picture, wide, OverlaySurfaces::Ground::frozen, Qt::transparent);
    OverlayView view(surfaces, display, {.screen = picture});
    for (const QPoint at : {QPoint(1000, 1000), QPoint(1003, 1002), QPoint(20, 2150)}) {
        surfaces.painted = 0;
        view.show(MeasureScene::of(display, {.cross = MeasureReading::Cross{at, {0, 3839}, {0, 2159}}}));
        EXPECT_LT(surfaces.painted, 150'000) << "lines across the display and two labels";
        EXPECT_TRUE(Testing::identicalPicture(surfaces.shown, view.compose(wide)));
    }
}

} // namespace Kovrel
