#include "editorwindow/backdrop/BackdropPanel.h"

#include "editor/backdrop/BackdropLooks.h"
#include "editor/backdrop/BackdropPresets.h"
#include "editorwindow/backdrop/AlignmentPad.h"
#include "editorwindow/backdrop/LightPad.h"
#include "editorwindow/backdrop/SwatchSection.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSlider>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

namespace {

constexpr QSize swatch(60, 40);

struct BackdropPanelTest : testing::Test {
    BackdropPanelTest() { Preferences::registerDefaults(defaults); }

    static EditorCapture capture()
    {
        QImage image(800, 600, QImage::Format_RGB32);
        image.fill(Qt::white);
        return {QUuid::createUuid(), image, 2, std::nullopt};
    }

    BackdropPanel& open()
    {
        if (!panel) {
            panel = std::make_unique<BackdropPanel>(session, preferences, loop, workers);
            panel->resize(panel->width(), 2000);
            panel->show();
            QApplication::setActiveWindow(panel.get());
        }
        return *panel;
    }

    template <class Widget>
    Widget* named(const QString& name)
    {
        for (auto* const widget : open().findChildren<Widget*>())
            if (widget->accessibleName() == name)
                return widget;
        ADD_FAILURE() << qUtf8Printable(name);
        return nullptr;
    }

    const EditorBackdrop& backdrop() const { return session.document().composition.backdrop; }

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
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    EditorSession session{capture(), {}, preferences};
    std::unique_ptr<BackdropPanel> panel;
};

struct BackdropEditingTest : BackdropPanelTest {
    BackdropEditing editing{session, preferences};
};

} // namespace

TEST_F(BackdropEditingTest, WhatWasChosenLastIsWhereTheNextCaptureBegins)
{
    EXPECT_TRUE(editing.backdrop().isNone());
    editing.apply(BackdropLooks::all()[2].backdrop);
    editing.change("padding", [](EditorBackdrop& one) { one.padding = 0.33; });
    editing.finish();
    editing.setFill({});
    EXPECT_TRUE(editing.backdrop().isNone());
    EXPECT_EQ(editing.backdrop().padding, 0.33) << "for when it gets a fill";

    EditorSession next(capture(), {}, preferences);
    BackdropEditing nextEditing(next, preferences);
    EXPECT_TRUE(nextEditing.backdrop().isNone()) << "nobody has asked for one";
    nextEditing.setFill({BackdropFill::Kind::color, "#123456"});
    EditorBackdrop expected = BackdropLooks::all()[2].backdrop;
    expected.padding = 0.33;
    expected.fill = {BackdropFill::Kind::color, "#123456"};
    EXPECT_EQ(next.document().composition.backdrop, expected);
}

TEST_F(BackdropEditingTest, ADragIsOneStep)
{
    const auto drag = [this](const QString& part, double EditorBackdrop::* field) {
        for (const double amount : {0.1, 0.3, 0.4})
            editing.change(part, [=](EditorBackdrop& one) { one.*field = amount; });
    };
    drag("padding", &EditorBackdrop::padding);
    EXPECT_EQ(backdrop().padding, 0.4);
    drag("frame", &EditorBackdrop::frame);
    editing.finish();
    drag("frame", &EditorBackdrop::frame);
    editing.change("frame", [](EditorBackdrop& one) { one.frame = 0.9; });
    EXPECT_EQ(steps(), 3);
    EXPECT_EQ(session.document(), EditorDocument());
}

TEST_F(BackdropPanelTest, WhatIsMovedIsSeenAtOnce)
{
    BackdropEditing(session, preferences).apply({});
    auto* const padding = named<QSlider>("Layout Padding");
    EXPECT_EQ(padding->value(), 20);
    padding->setSliderDown(true);
    for (const int percent : {30, 40}) {
        padding->setValue(percent);
        EXPECT_DOUBLE_EQ(backdrop().padding, percent / 100.0);
    }
    padding->setSliderDown(false);
    named<QAbstractButton>("Bottom Right")->click();
    EXPECT_EQ(backdrop().alignment, CardAlignment::bottomRight);
    QKeyEvent left(QEvent::KeyPress, Qt::Key_Left, {});
    QCoreApplication::sendEvent(named<LightPad>("Light"), &left);
    EXPECT_GT(backdrop().shadowLight.x, 0) << "light from the left throws a shadow to the right";
    for (int step = 0; step < 3; ++step)
        session.undo();
    EXPECT_EQ(padding->value(), 20) << "undo is shown, too";
    EXPECT_EQ(steps(), 1);
    EXPECT_FALSE(padding->isEnabled()) << "nothing to set without a backdrop";
}

TEST_F(BackdropPanelTest, EachSwatchSetsItsFillAndIsShownAsChosen)
{
    const std::pair<const char*, BackdropFill> fills[] = {
        {"Dusk", {BackdropFill::Kind::gradient, "dusk"}},
        {"Lilac", {BackdropFill::Kind::color, "#CDB9F0"}},
        {"No Backdrop", {}},
    };
    for (const auto& [name, fill] : fills) {
        auto* const button = named<SwatchButton>(name);
        button->click();
        EXPECT_EQ(backdrop().fill, fill);
        EXPECT_TRUE(button->isChecked());
        button->click();
        EXPECT_TRUE(button->isChecked()) << "what is chosen stays so";
    }
}

TEST_F(BackdropPanelTest, SectionsStayAsTheyAreLeft)
{
    const auto isUnfolded = [this] { return preferences.get(Settings::backdropGradientsExpanded); };
    auto* const title = named<QPushButton>("Gradients");
    auto* const second = named<SwatchButton>("Meadow");
    EXPECT_TRUE(second->isHidden()) << "folded, there is one row";
    title->click();
    EXPECT_FALSE(second->isHidden());
    EXPECT_TRUE(isUnfolded());
    panel.reset();
    EXPECT_FALSE(named<SwatchButton>("Meadow")->isHidden());
    named<QPushButton>("Gradients")->click();
    EXPECT_FALSE(isUnfolded());
}

TEST_F(BackdropPanelTest, ArrowKeysGoFromSwatchToSwatchAndMoveThemWithAlt)
{
    auto* const first = named<SwatchButton>("Lagoon");
    const auto press = [](QWidget* widget, int key, Qt::KeyboardModifiers keys = {}) {
        QKeyEvent event(QEvent::KeyPress, key, keys);
        QCoreApplication::sendEvent(widget, &event);
    };
    EXPECT_EQ(first->focusPolicy(), Qt::TabFocus) << "one stop for all of them";
    EXPECT_EQ(named<SwatchButton>("Dawn")->focusPolicy(), Qt::NoFocus);
    press(first, Qt::Key_Right);
    EXPECT_TRUE(named<SwatchButton>("Dawn")->hasFocus());
    EXPECT_EQ(first->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(named<SwatchButton>("Dawn")->focusPolicy(), Qt::TabFocus);
    press(first, Qt::Key_Right, Qt::AltModifier);
    press(first, Qt::Key_Right, Qt::AltModifier);
    EXPECT_THAT(preferences.backdropRowOrder(BackdropChips::gradients).first(3),
                testing::ElementsAre("dawn", "dusk", "lagoon"));
}

TEST_F(BackdropPanelTest, ASwatchIsDraggedToItsPlaceWithoutBeingChosen)
{
    auto* const dragged = named<SwatchButton>("Lagoon");
    const auto send = [&](QEvent::Type type, QPoint global) {
        const bool isHeld = type != QEvent::MouseButtonRelease;
        QMouseEvent event(type, dragged->mapFromGlobal(QPointF(global)), QPointF(global),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          isHeld ? Qt::LeftButton : Qt::NoButton, {});
        QCoreApplication::sendEvent(dragged, &event);
    };
    const auto middleOf = [](QWidget* widget) { return widget->mapToGlobal(widget->rect().center()); };
    const QPoint target = middleOf(named<SwatchButton>("Dusk"));
    send(QEvent::MouseButtonPress, middleOf(dragged));
    send(QEvent::MouseMove, middleOf(dragged) + QPoint(2, 0));
    EXPECT_TRUE(preferences.backdropRowOrder(BackdropChips::gradients).isEmpty()) << "a click that trembles";
    send(QEvent::MouseMove, target);
    send(QEvent::MouseButtonRelease, target);
    EXPECT_THAT(preferences.backdropRowOrder(BackdropChips::gradients).first(3),
                testing::ElementsAre("dawn", "dusk", "lagoon"));
    EXPECT_TRUE(backdrop().isNone());
    dragged->click();
    EXPECT_EQ(backdrop().fill.value, "lagoon") << "and can be chosen as before";
}

// What is saved under a name once more looks as it is now.
TEST_F(BackdropPanelTest, ALookOfTheUserIsOfferedAndApplied)
{
    EditorBackdrop mine;
    mine.fill = {BackdropFill::Kind::color, "#123456"};
    BackdropPresets::save({"Mine", mine}, preferences);
    named<SwatchButton>("Mine")->click();
    EXPECT_EQ(backdrop(), mine);
    mine.corners = 33;
    BackdropPresets::save({"Mine", mine}, preferences);
    session.change({});
    named<SwatchButton>("Mine")->click();
    EXPECT_EQ(backdrop(), mine);
    BackdropPresets::remove("Mine", preferences);
    session.change({});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (auto* const button : panel->findChildren<SwatchButton*>())
        EXPECT_NE(button->accessibleName(), "Mine");
}

// The panel opens without them; each is drawn once, off the main thread.
TEST_F(BackdropPanelTest, SwatchesComeWhenTheyHaveBeenDrawn)
{
    int drawn = 0;
    BackdropSwatches swatches(loop, workers, capture(), [&drawn] { ++drawn; });
    const BackdropFill fill{BackdropFill::Kind::color, "#204060"};
    EditorBackdrop look;
    look.fill = fill;
    for (int time = 0; time < 3; ++time) {
        EXPECT_TRUE(swatches.fill(fill, swatch).isNull());
        EXPECT_TRUE(swatches.look(look, swatch).isNull());
    }
    EXPECT_EQ(workers.runAll(), 2u);
    loop.runPosted();
    EXPECT_EQ(drawn, 2);
    EXPECT_EQ(swatches.fill(fill, swatch).pixelColor(30, 20), QColor("#204060"));
    const QImage shown = swatches.look(look, swatch);
    EXPECT_EQ(shown.size(), swatch);
    EXPECT_EQ(shown.pixelColor(1, 1), QColor("#204060"));
    EXPECT_EQ(shown.pixelColor(30, 20), QColor(Qt::white)) << "the capture";
    EXPECT_TRUE(swatches.fill({BackdropFill::Kind::picture, "/no/such.png"}, swatch).isNull());
    workers.runAll();
    loop.runPosted();
    EXPECT_FALSE(swatches.fill({BackdropFill::Kind::picture, "/no/such.png"}, swatch).isNull()) << "plain";
}

} // namespace Kovrel
