#include "editor/session/EditorPointing.h"

#include "editor/geometry/MarkFrame.h"
#include "editor/session/LabelEditing.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;
using testing::ElementsAre;
using testing::SizeIs;

// An editor without a window, with a capture of 400 x 300 image points.
struct EditorPointingTest : testing::Test {
    EditorPointingTest() { Preferences::registerDefaults(defaults); }

    static EditorCapture capture()
    {
        QImage image(800, 600, QImage::Format_RGB32);
        image.fill(Qt::white);
        return {QUuid::createUuid(), image, 2, std::nullopt};
    }

    static CanvasPointer at(double x, double y, Qt::KeyboardModifiers keys = {}, int clicks = 1)
    {
        return {.at = {x, y},
                .shift = keys.testFlag(Qt::ShiftModifier),
                .alt = keys.testFlag(Qt::AltModifier),
                .control = !keys.testFlag(Qt::MetaModifier),
                .clicks = clicks};
    }

    void drag(EditorTool tool, Point from, Point to, Qt::KeyboardModifiers keys = {})
    {
        session.setTool(tool);
        pointing.press(at(from.x, from.y, keys));
        pointing.move(at((from.x + to.x) / 2, (from.y + to.y) / 2, keys));
        pointing.release(at(to.x, to.y, keys));
    }

    std::optional<QUuid> click(EditorTool tool, Point place, Qt::KeyboardModifiers keys = {}, int clicks = 1)
    {
        session.setTool(tool);
        pointing.press(at(place.x, place.y, keys, clicks));
        return pointing.release(at(place.x, place.y, keys, clicks));
    }

    const std::vector<Annotation>& marks() const { return session.document().marks; }

    int steps()
    {
        int count = 0;
        for (; session.canUndo(); ++count)
            session.undo();
        return count;
    }

    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    EditorSession session{capture(), {}, preferences};
    EditorPointing pointing{session};
};

} // namespace

TEST_F(EditorPointingTest, EachToolDrawsItsMarkInOneStep)
{
    struct Case {
        EditorTool tool;
        Kind kind;
        size_t points;
    };

    const Case cases[] = {
        {EditorTool::arrow, Kind::arrow, 2},
        {EditorTool::line, Kind::line, 2},
        {EditorTool::pen, Kind::pen, 3},
        {EditorTool::highlighter, Kind::highlighter, 3},
        {EditorTool::rectangle, Kind::rectangle, 2},
        {EditorTool::rectangleFilled, Kind::rectangle, 2},
        {EditorTool::ellipse, Kind::ellipse, 2},
        {EditorTool::step, Kind::step, 1},
        {EditorTool::blur, Kind::blur, 2},
        {EditorTool::pixelate, Kind::pixelate, 2},
        {EditorTool::blackout, Kind::blackout, 2},
        {EditorTool::spotlight, Kind::spotlight, 2},
        {EditorTool::measure, Kind::measure, 2},
    };
    for (const Case& one : cases) {
        drag(one.tool, {50, 60}, {151, 123});
        ASSERT_THAT(marks(), SizeIs(1)) << int(one.tool);
        EXPECT_EQ(marks()[0].kind, one.kind);
        EXPECT_EQ(marks()[0].points.size(), one.points) << int(one.tool);
        EXPECT_EQ(marks()[0].points.back(), (Point{151, 123}));
        EXPECT_EQ(marks()[0].fillStyle == AnnotationFillStyle::filled, one.tool == EditorTool::rectangleFilled);
        EXPECT_EQ(preferences.get(Settings::lastEditorTool), one.tool);
        EXPECT_EQ(steps(), 1) << int(one.tool);
        EXPECT_THAT(marks(), SizeIs(0));
    }
    drag(EditorTool::rectangle, {50, 60}, {150, 90}, Qt::ShiftModifier | Qt::AltModifier);
    EXPECT_EQ(marks()[0].boundingRect(), (Rect{-50, -40, 200, 200})) << "even, about where it began";
}

TEST_F(EditorPointingTest, ClicksSelectAndDragsMoveWhatIsMeant)
{
    drag(EditorTool::rectangleFilled, {50, 50}, {100, 100});
    drag(EditorTool::ellipse, {200, 50}, {250, 100});
    const QUuid box = marks()[0].id;
    const QUuid ellipse = marks()[1].id;
    EXPECT_THAT(session.selection(), ElementsAre(ellipse)) << "what was just drawn";

    click(EditorTool::arrow, {75, 75});
    EXPECT_THAT(session.selection(), ElementsAre(box)) << "a tool that draws selects by a click";
    EXPECT_THAT(marks(), SizeIs(2));
    drag(EditorTool::arrow, {60, 75}, {90, 80});
    EXPECT_THAT(marks(), SizeIs(3)) << "and draws over a mark that is not selected";
    session.undo();

    click(EditorTool::select, {200, 75});
    click(EditorTool::select, {75, 75}, Qt::ShiftModifier);
    EXPECT_THAT(session.selection(), ElementsAre(box, ellipse));
    drag(EditorTool::select, {75, 75}, {95, 81}, Qt::ShiftModifier);
    EXPECT_THAT(session.selection(), ElementsAre(ellipse)) << "Shift takes out what was selected";
    click(EditorTool::select, {200, 75});
    drag(EditorTool::select, {20, 20}, {300, 200}, Qt::MetaModifier);
    EXPECT_THAT(session.selection(), ElementsAre(box, ellipse)) << "a rectangle around them";
    const Rect before = MarkFrame::bounds(marks());
    drag(EditorTool::select, {75, 75}, {105, 83});
    EXPECT_EQ(MarkFrame::bounds(marks()).x, before.x + 30) << "all that is selected moves";
    EXPECT_EQ(MarkFrame::bounds(marks()).y, before.y + 8);
    drag(EditorTool::select, {105, 83}, {105, 183}, Qt::AltModifier);
    EXPECT_THAT(marks(), SizeIs(4)) << "Alt leaves them and moves copies";
    EXPECT_FALSE(session.isSelected(box));
    click(EditorTool::select, {390, 290});
    EXPECT_THAT(session.selection(), SizeIs(0));
}

TEST_F(EditorPointingTest, HandlesAreDraggedFromWhereTheyAreHeld)
{
    drag(EditorTool::rectangle, {50, 50}, {100, 100});
    drag(EditorTool::select, {103, 103}, {153, 133});
    EXPECT_EQ(marks()[0].boundingRect(), (Rect{50, 50, 100, 80}));
    pointing.press(at(150, 130));
    pointing.move(at(300, 200));
    pointing.cancel();
    EXPECT_EQ(marks()[0].boundingRect(), (Rect{50, 50, 100, 80})) << "Escape goes back";
    EXPECT_EQ(steps(), 2);
}

TEST_F(EditorPointingTest, StepsCountOnAndCloseGaps)
{
    for (const double x : {50.0, 100.0, 150.0, 200.0})
        click(EditorTool::step, {x, 50});
    const auto numbers = [this] {
        std::vector<qint64> all;
        for (const Annotation& mark : marks())
            all.push_back(mark.stepNumber);
        return all;
    };
    EXPECT_THAT(numbers(), ElementsAre(1, 2, 3, 4));
    session.select({marks()[1].id, marks()[2].id});
    session.removeSelected();
    EXPECT_THAT(numbers(), ElementsAre(1, 2));
    session.undo();
    EXPECT_THAT(numbers(), ElementsAre(1, 2, 3, 4));
    session.selectAll();
    session.duplicateSelected();
    EXPECT_THAT(numbers(), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

TEST_F(EditorPointingTest, LabelsAreWrittenWhereSomebodyClicksOrDraws)
{
    const auto id = click(EditorTool::text, {100, 100});
    ASSERT_TRUE(id);
    {
        LabelEditing editing(session, *id);
        editing.insert("a");
        editing.insert("b");
        session.setStyle({.colorHex = "#00FF00"});
        editing.insert("c\nd");
        editing.finish();
    }
    ASSERT_THAT(marks(), SizeIs(1));
    EXPECT_EQ(marks()[0].text, "abc\nd");
    EXPECT_EQ(marks()[0].colorHex, "#00FF00") << "a style that was chosen meanwhile";
    const Rect plate = marks()[0].textRect();
    EXPECT_EQ(click(EditorTool::text, plate.centre()), id) << "a click on it writes on";
    EXPECT_EQ(click(EditorTool::select, plate.centre(), {}, 2), id) << "as a double click does";
    EXPECT_FALSE(click(EditorTool::select, plate.centre()));

    session.setTool(EditorTool::text);
    session.select({});
    const auto empty = click(EditorTool::text, {300, 250});
    LabelEditing(session, *empty).finish();
    EXPECT_THAT(marks(), SizeIs(1)) << "nothing was written";
    pointing.press(at(200, 200));
    const auto drawn = pointing.release(at(380, 260));
    ASSERT_TRUE(drawn);
    LabelEditing box(session, *drawn);
    box.insert("In a box");
    box.finish();
    EXPECT_THAT(marks(), SizeIs(2));
    EXPECT_EQ(marks()[1].points.size(), 2u);
    EXPECT_EQ(steps(), 2);
}

TEST_F(EditorPointingTest, CropsStayOnTheCanvasAndOnPixels)
{
    const auto crop = [this] { return *session.document().composition.crop; };
    drag(EditorTool::crop, {50.3, 60.2}, {200.2, 160.4});
    EXPECT_EQ(crop(), (Rect{50.5, 60, 149.5, 100.5}));
    drag(EditorTool::crop, {100, 100}, {1000, 1000});
    EXPECT_EQ(crop(), (Rect{250.5, 199.5, 149.5, 100.5})) << "moved, as far as there is room";
    drag(EditorTool::crop, {250.5, 199.5}, {-100, -100});
    EXPECT_EQ(crop(), (Rect{0, 0, 400, 300}));
    pointing.setCropAspect(2);
    session.undo();
    session.undo();
    session.undo();
    drag(EditorTool::crop, {100, 10}, {500, 400});
    EXPECT_EQ(crop(), (Rect{100, 10, 300, 150})) << "in its shape, as large as fits";
    drag(EditorTool::crop, {400, 160}, {300, 110});
    EXPECT_EQ(crop(), (Rect{100, 10, 200, 100}));
}

TEST_F(EditorPointingTest, OrderStylesAndNudges)
{
    for (const double x : {50.0, 100.0, 150.0})
        drag(EditorTool::rectangleFilled, {x, 50}, {x + 30, 90});
    const QUuid first = marks()[0].id;
    session.select({first});
    using Layer = EditorSession::Layer;
    const auto place = [&] { return std::ranges::find(marks(), first, &Annotation::id) - marks().begin(); };
    session.bring(Layer::forward);
    EXPECT_EQ(place(), 1);
    session.bring(Layer::front);
    EXPECT_EQ(place(), 2);
    session.bring(Layer::backward);
    EXPECT_EQ(place(), 1);
    session.bring(Layer::back);
    EXPECT_EQ(place(), 0);

    session.setStyle({.colorHex = "#112233"});
    session.setStyle({.lineWidth = 9});
    EXPECT_EQ(session.style().lineWidth, 9);
    EXPECT_EQ(session.document().mark(first)->colorHex, "#112233");
    session.selectAll();
    EXPECT_EQ(session.style().colorHex, std::nullopt) << "they differ";
    EXPECT_EQ(session.style().fillStyle, AnnotationFillStyle::filled);
    session.undo();
    EXPECT_EQ(session.document().mark(first)->lineWidth, preferences.get(Settings::annotationStrokeWidth))
        << "what was done at the style panel without a pause is one step";
    session.select({first});
    for (int count = 0; count < 5; ++count)
        session.moveBy({1, 0}, "nudge");
    EXPECT_EQ(session.document().mark(first)->boundingRect().x, 55);
    session.undo();
    EXPECT_EQ(session.document().mark(first)->boundingRect().x, 50);
}

// Whatever somebody does, each state comes back exactly, and no gesture leaves half a step.
TEST_F(EditorPointingTest, ARandomWalkIsUndoneToTheStartAndRedone)
{
    for (unsigned seed = 0; seed < 20; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&random](int end) { return int(random() % unsigned(end)); };
        const auto place = [&] { return Point{double(below(500) - 50), double(below(400) - 50)}; };
        EditorSession walked(capture(), {}, preferences);
        EditorPointing pointer(walked);
        const auto gesture = [&] {
            const Qt::KeyboardModifiers keys(below(3) == 0 ? below(8) << 25 : 0);
            const Point from = place();
            pointer.press(at(from.x, from.y, keys, 1 + below(2)));
            for (int moves = below(4); moves > 0; --moves) {
                const Point to = place();
                pointer.move(at(to.x, to.y, keys));
            }
            if (below(10) == 0)
                return pointer.cancel();
            const Point to = below(3) == 0 ? from : place();
            if (const auto label = pointer.release(at(to.x, to.y, keys))) {
                LabelEditing editing(walked, *label);
                for (int letters = below(4); letters > 0; --letters)
                    editing.insert(QString(QChar('a' + below(26))));
                for (int moves = below(6); moves > 0; --moves)
                    below(2) == 0 ? editing.move(LabelEditing::Move(below(10)), below(2) == 0)
                                  : editing.erase(LabelEditing::Move(below(10)));
                editing.finish();
            }
        };
        for (int round = 0; round < 150; ++round)
            switch (below(12)) {
            case 0:
                walked.setTool(EditorTool(below(16)));
                break;
            case 1:
                walked.removeSelected();
                break;
            case 2:
                walked.duplicateSelected();
                break;
            case 3:
                walked.bring(EditorSession::Layer(below(4)));
                break;
            case 4:
                walked.undo();
                break;
            case 5:
                walked.redo();
                break;
            case 6:
                walked.selectAll();
                break;
            default:
                gesture();
            }
        const auto redoAll = [&walked] {
            while (walked.canRedo())
                walked.redo();
            return walked.document();
        };
        const EditorDocument end = redoAll();
        while (walked.canUndo())
            walked.undo();
        EXPECT_EQ(walked.document(), EditorDocument()) << "seed " << seed;
        EXPECT_EQ(redoAll(), end) << "seed " << seed;
        for (const Annotation& mark : walked.document().marks)
            EXPECT_FALSE(mark.points.empty()) << "seed " << seed;
    }
}

} // namespace Kovrel
