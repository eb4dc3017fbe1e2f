#include "editorwindow/tools/DragHandle.h"
#include "editorwindow/tools/StylePanel.h"
#include "editorwindow/tools/ToolKeys.h"
#include "editorwindow/tools/ToolPalette.h"
#include "tests/support/TempFolder.h"
#include "ui/controls/SymbolButton.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSlider>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

QKeyEvent pressed(int key, const QString& text, quint32 place = 0, Qt::KeyboardModifiers modifiers = {})
{
    return {QEvent::KeyPress, key, modifiers, place, 0, 0, text};
}

struct StylePanelTest : testing::Test {
    StylePanelTest()
    {
        Preferences::registerDefaults(defaults);
        QObject::connect(&panel, &StylePanel::styleChosen, [this](const MarkStyle& style) { chosen.push_back(style); });
    }

    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    StylePanel panel{preferences};
    std::vector<MarkStyle> chosen;
};

} // namespace

TEST(ToolKeysTest, EachToolHasItsKeyOnEveryKeyboard)
{
    EXPECT_EQ(ToolKeys::toolOf(pressed(Qt::Key_A, "a")), EditorTool::arrow);
    EXPECT_EQ(ToolKeys::toolOf(pressed(Qt::Key_M, "m")), EditorTool::measure);
    // Russian: the letters where A and R are on a US keyboard. German: Z and Y have changed places, and letters count.
    EXPECT_EQ(ToolKeys::toolOf(pressed(0x0424, QString(QChar(0x0444)), 38)), EditorTool::arrow);
    EXPECT_EQ(ToolKeys::toolOf(pressed(0x041a, QString(QChar(0x043a)), 27)), EditorTool::rectangle);
    EXPECT_EQ(ToolKeys::toolOf(pressed(Qt::Key_Z, "z", 29)), std::nullopt);
    EXPECT_EQ(ToolKeys::toolOf(pressed(Qt::Key_A, "a", 38, Qt::ControlModifier)), std::nullopt);
    std::set<char> letters;
    for (const auto& [tool, name] : RawStrings<EditorTool>::table)
        letters.insert(ToolKeys::letterOf(tool));
    EXPECT_EQ(letters.size(), RawStrings<EditorTool>::table.size()) << "no letter twice";
}

TEST(ToolPaletteTest, ShowsTheToolAndTellsTheOneThatIsChosen)
{
    ToolPalette palette;
    std::vector<EditorTool> chosen;
    QObject::connect(&palette, &ToolPalette::toolChosen, [&](EditorTool tool) { chosen.push_back(tool); });
    palette.setTool(EditorTool::blur);
    const auto buttons = palette.findChildren<SymbolButton*>();
    ASSERT_EQ(buttons.size(), 16);
    for (const SymbolButton* const button : buttons) {
        EXPECT_EQ(button->isChecked(), button == buttons[int(EditorTool::blur)]);
        EXPECT_FALSE(button->accessibleName().isEmpty());
    }
    EXPECT_TRUE(chosen.empty());
    buttons[int(EditorTool::text)]->click();
    EXPECT_EQ(chosen, std::vector{EditorTool::text});
}

TEST(ToolPaletteTest, AllToolsAreInSightInALowWindowToo)
{
    ToolPalette palette;
    palette.show();
    for (const int height : {palette.sizeHint().height(), palette.sizeHint().height() - 1,
                             palette.minimumSizeHint().height(), palette.sizeHint().height()}) {
        palette.setFixedHeight(height);
        palette.resize(palette.sizeHint().width(), height);
        palette.resize(palette.sizeHint()); // what it takes once it has two columns
        QRegion taken;
        for (const SymbolButton* const button : palette.findChildren<SymbolButton*>()) {
            EXPECT_TRUE(palette.rect().contains(button->geometry())) << height;
            EXPECT_FALSE(taken.intersects(button->geometry())) << height;
            taken += button->geometry();
        }
    }
    EXPECT_LT(palette.minimumSizeHint().height(), 420) << "of a display of 540 points, less bars and title";
}

TEST_F(StylePanelTest, OffersWhatThereIsAndTellsOnlyWhatWasChanged)
{
    panel.setStyle({.lineWidth = 4, .fillStyle = AnnotationFillStyle::hatched},
                   {.colorHex = "", .lineWidth = 1, .fillStyle = AnnotationFillStyle{}});
    EXPECT_TRUE(chosen.empty()) << "what is shown is not chosen";
    std::vector<QWidget*> offered;
    for (auto* const widget : panel.findChildren<QWidget*>())
        if (widget->isVisibleTo(&panel) && widget->focusPolicy() != Qt::NoFocus) {
            offered.push_back(widget);
            EXPECT_FALSE(widget->accessibleName().isEmpty());
            EXPECT_FALSE(widget->focusPolicy() & Qt::ClickFocus & ~Qt::TabFocus) << "text goes on being written";
        }
    EXPECT_EQ(offered.size(), 6u) << "a colour, a width, four fills";
    for (auto* const widget : offered) {
        if (auto* const slider = qobject_cast<QSlider*>(widget)) {
            slider->setValue(slider->maximum());
            EXPECT_EQ(chosen.back(), (MarkStyle{.lineWidth = 20}));
        } else if (auto* const button = qobject_cast<SymbolButton*>(widget); button && !button->isChecked()) {
            button->click();
            EXPECT_EQ(chosen.back(), (MarkStyle{.fillStyle = chosen.back().fillStyle}));
        }
    }
    EXPECT_EQ(chosen.size(), 4u);
}

// Once for each press, and not for a trembling hand or another button.
TEST(DragHandleTest, IsDraggedOnceThePointerHasGoneFarEnough)
{
    const std::tuple<Qt::MouseButton, std::vector<QPoint>, int> cases[] = {
        {Qt::LeftButton, {{11, 10}, {12, 12}}, 0},
        {Qt::LeftButton, {{11, 10}, {80, 90}, {200, 90}}, 1},
        {Qt::RightButton, {{80, 90}}, 0},
    };
    for (const auto& [button, way, expected] : cases) {
        DragHandle handle("plus", "Handle");
        handle.show();
        int drags = 0;
        QObject::connect(&handle, &DragHandle::dragged, [&drags] { ++drags; });
        const auto send = [&handle, held = button](QEvent::Type type, Qt::MouseButton changed, QPointF at) {
            QMouseEvent event(type, at, handle.mapToGlobal(at), changed, held, {});
            QCoreApplication::sendEvent(&handle, &event);
        };
        send(QEvent::MouseButtonPress, button, {10, 10});
        for (const QPoint at : way)
            send(QEvent::MouseMove, Qt::NoButton, at);
        EXPECT_EQ(drags, expected);
    }
}

} // namespace Kovrel
