#include "editor/session/EditorPointing.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <QPainter>

namespace Kovrel {

namespace {

struct Keys {
    bool shift = false;
    bool alt = false;
    bool control = false;
};

// A capture of 400 x 300 image points at two pixels each, with a button that is a little darker than the page: its
// sides are at 100 and 220, its upper and lower ones at 200 and 160, y up.
struct MeasuringTest : testing::Test {
    MeasuringTest()
    {
        Preferences::registerDefaults(defaults);
        session.setTool(EditorTool::measure);
        pointing.setEdges(std::make_shared<const CaptureEdges>(session.capture()));
    }

    static EditorCapture capture()
    {
        QImage image(800, 600, QImage::Format_RGB32);
        image.fill(qRgb(250, 250, 250));
        QPainter(&image).fillRect(QRect(200, 200, 240, 80), qRgb(240, 240, 240));
        return {QUuid::createUuid(), image, 2, std::nullopt};
    }

    static CanvasPointer at(Point place, Keys keys)
    {
        return {.at = place, .shift = keys.shift, .alt = keys.alt, .control = keys.control};
    }

    void drag(Point from, Point to, Keys keys = {})
    {
        pointing.press(at(from, keys));
        pointing.release(at(to, keys));
    }

    std::vector<Point> lastPoints() const
    {
        const auto& marks = session.document().marks;
        return marks.empty() ? std::vector<Point>() : marks.back().points;
    }

    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    EditorSession session{capture(), {}, preferences};
    EditorPointing pointing{session};
};

using Points = std::vector<Point>;

} // namespace

TEST_F(MeasuringTest, AMeasureThatIsDrawnGoesToEdgesOfThePicture)
{
    struct Case {
        const char* what;
        Point from;
        Point to;
        Keys keys;
        Points points;
    };

    const Case cases[] = {
        {"across, a little askew", {97, 180}, {223, 185}, {}, {{100, 180}, {220, 180}}},
        {"up, from the lower side", {150, 158}, {155, 203}, {}, {{150, 160}, {150, 200}}},
        {"from border to side", {2, 180}, {103, 180}, {}, {{0, 180}, {100, 180}}},
        {"only one end is near an edge", {130, 180}, {217, 180}, {}, {{130, 180}, {220, 180}}},
        {"beside the button there is no edge", {97, 120}, {223, 121}, {}, {{97, 120}, {223, 120}}},
        {"slanted: where it is drawn", {97, 158}, {200, 110}, {}, {{97, 158}, {200, 110}}},
        {"with Control: where it is drawn", {97, 180}, {223, 185}, {.control = true}, {{97, 180}, {223, 185}}},
        {"with Shift: made level, then brought", {97, 180}, {223, 195}, {.shift = true}, {{100, 180}, {220, 180}}},
    };
    for (const Case& each : cases) {
        drag(each.from, each.to, each.keys);
        EXPECT_EQ(lastPoints(), each.points) << each.what;
        session.undo();
    }
}

TEST_F(MeasuringTest, AClickMeasuresWhatIsUnderIt)
{
    drag({150, 180}, {150, 180});
    EXPECT_EQ(lastPoints(), (Points{{100, 180}, {220, 180}}));
    session.undo();
    drag({150, 180}, {150, 180}, {.shift = true});
    EXPECT_EQ(lastPoints(), (Points{{150, 200}, {150, 160}}));
    session.undo();
    drag({500, 180}, {500, 180});
    EXPECT_TRUE(session.document().marks.empty()) << "beside the picture there is nothing to measure";
}

TEST_F(MeasuringTest, AClickOnAMeasureSelectsItAndItsEndsAreBroughtToEdges)
{
    drag({97, 180}, {223, 180});
    session.select({});
    drag({130, 180}, {130, 180});
    ASSERT_EQ(session.document().marks.size(), 1U);
    EXPECT_EQ(session.selection().size(), 1U);
    drag({220, 180}, {3, 183}); // its end, to the border of the picture
    EXPECT_EQ(lastPoints(), (Points{{100, 180}, {0, 180}}));
    session.undo();
    drag({220, 180}, {397, 181});
    EXPECT_EQ(lastPoints(), (Points{{100, 180}, {400, 180}}));
}

} // namespace Kovrel
