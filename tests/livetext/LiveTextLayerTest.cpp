#include "livetext/layer/LiveTextLayer.h"

#include "preferences/Settings.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>

namespace Kovrel {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What lies below: counts what reaches it.
struct Ground : QWidget {
    void mousePressEvent(QMouseEvent*) override { ++presses; }

    int presses = 0;
};

// A picture of 1000 x 500 pixels, shown at half its size: a line of text with an address in it, and a code.
struct LiveTextLayerTest : testing::Test {
    LiveTextLayerTest()
    {
        Preferences::registerDefaults(defaults);
        ground.resize(500, 250);
        OCRLine line{.text = "at https://a.org now", .confidence = 1, .boundingBox = {0.1, 0.8, 0.2, 0.04}};
        OCRLine code{.text = "payload", .confidence = 1, .boundingBox = {0.5, 0.2, 0.1, 0.2}, .isQRCode = true};
        layer.setReading({.lines = {line, code}}, {}, {1000, 500});
        layer.setPlacement(QTransform::fromScale(0.5, 0.5));
        ground.show();
    }

    // Points of the widget.
    void send(QEvent::Type type, QPointF at, Qt::KeyboardModifiers keys = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, at, layer.mapToGlobal(at), isMove ? Qt::NoButton : button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : button, keys);
        QApplication::sendEvent(&layer, &event);
    }

    void drag(QPointF from, QPointF to)
    {
        send(QEvent::MouseButtonPress, from);
        send(QEvent::MouseMove, to);
        send(QEvent::MouseButtonRelease, to);
    }

    void click(QPointF at) { drag(at, at); }

    bool press(const QKeyCombination keys)
    {
        QKeyEvent override(QEvent::ShortcutOverride, keys.key(), keys.keyboardModifiers());
        override.ignore();
        QApplication::sendEvent(&layer, &override);
        QKeyEvent event(QEvent::KeyPress, keys.key(), keys.keyboardModifiers());
        QApplication::sendEvent(&layer, &event);
        return override.isAccepted();
    }

    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    std::vector<QString> copied;
    std::vector<QUrl> opened;
    Ground ground;
    LiveTextLayer layer{ground,
                        preferences,
                        {.copy = [this](const QString& text) { copied.push_back(text); },
                         .open = [this](const QUrl& target) { opened.push_back(target); }}};
};

// The line is from 50 to 150 across and from 40 to 50 down; a letter is five points wide.
constexpr QPointF start{50, 45};
constexpr QPointF onAddress{90, 45};
constexpr QPointF lineEnd{150, 45};
constexpr QPointF onCode{260, 180};
constexpr QPointF beside{300, 60};

} // namespace

TEST_F(LiveTextLayerTest, WhatIsDraggedOverIsCopied)
{
    drag(start, {60, 45});
    EXPECT_EQ(layer.selectedText(), "at");
    EXPECT_TRUE(press(QKeyCombination(Qt::ControlModifier, Qt::Key_C)))
        << "the window's own shortcut would copy the picture";
    EXPECT_THAT(copied, ElementsAre("at"));
    send(QEvent::MouseButtonPress, lineEnd, Qt::ShiftModifier);
    send(QEvent::MouseButtonRelease, lineEnd);
    EXPECT_EQ(layer.selectedText(), "at https://a.org now");
    EXPECT_TRUE(press(Qt::Key_Escape));
    EXPECT_EQ(layer.selectedText(), "");
    EXPECT_FALSE(press(Qt::Key_Escape)) << "with nothing selected it is the window's";
    EXPECT_TRUE(press(QKeyCombination(Qt::ControlModifier, Qt::Key_A)));
    EXPECT_EQ(layer.selectedText(), "at https://a.org now");
}

TEST_F(LiveTextLayerTest, TwoClicksSelectAWordAndThreeTheLine)
{
    click(start + QPointF(2, 0));
    send(QEvent::MouseButtonDblClick, start + QPointF(2, 0));
    send(QEvent::MouseButtonRelease, start + QPointF(2, 0));
    EXPECT_EQ(layer.selectedText(), "at");
    click(start + QPointF(2, 0));
    EXPECT_EQ(layer.selectedText(), "at https://a.org now");
}

TEST_F(LiveTextLayerTest, AClickFollowsALinkAndADragOverItSelects)
{
    drag(onAddress, lineEnd);
    EXPECT_THAT(opened, IsEmpty());
    EXPECT_FALSE(layer.selectedText().isEmpty());
    click(onAddress);
    EXPECT_THAT(opened, ElementsAre(QUrl("https://a.org")));
    click(onCode);
    EXPECT_THAT(copied, ElementsAre("payload")) << "what is no address of a web page is copied, never opened";
    EXPECT_EQ(opened.size(), 1U);
}

TEST_F(LiveTextLayerTest, ADragThatBeginsOnACodeSelectsNothing)
{
    drag(onCode, lineEnd);
    EXPECT_EQ(layer.selectedText(), "");
    EXPECT_THAT(copied, IsEmpty());
}

TEST_F(LiveTextLayerTest, WhatIsNoTextIsForTheWidgetBelow)
{
    drag(start, lineEnd);
    EXPECT_EQ(ground.presses, 0);
    click(beside);
    EXPECT_EQ(ground.presses, 1);
    EXPECT_EQ(layer.selectedText(), "") << "and ends the selection";
    send(QEvent::MouseButtonPress, onAddress, {}, Qt::RightButton);
    EXPECT_EQ(ground.presses, 2);
}

TEST_F(LiveTextLayerTest, PeopleAreToldOnceThatTextCanBeSelected)
{
    send(QEvent::MouseMove, beside);
    EXPECT_FALSE(preferences.get(Settings::liveTextHintSeen));
    send(QEvent::MouseMove, start);
    EXPECT_TRUE(preferences.get(Settings::liveTextHintSeen));
}

TEST_F(LiveTextLayerTest, AnotherReadingEndsWhatWasSelected)
{
    send(QEvent::MouseButtonPress, onAddress);
    layer.setReading({}, {}, {10, 10});
    send(QEvent::MouseButtonRelease, onAddress);
    EXPECT_THAT(opened, IsEmpty());
    EXPECT_TRUE(layer.isHidden());
}

} // namespace Kovrel
