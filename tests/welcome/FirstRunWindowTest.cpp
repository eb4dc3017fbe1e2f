#include "welcome/FirstRunWindow.h"

#include "tests/support/TempFolder.h"
#include "tests/support/WindowWalk.h"
#include "ui/controls/ToggleSwitch.h"
#include "ui/tokens/Motion.h"
#include "welcome/KeyCaps.h"
#include "welcome/PermissionWindow.h"
#include "welcome/ProgressDots.h"

#include <QLabel>
#include <QStackedWidget>

#include <gtest/gtest.h>

namespace Kovrel {

namespace WindowWalk = Testing::WindowWalk;

namespace {

struct FirstRunWindowTest : testing::Test {
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    bool startsAtLogin = false;
    QStringList borrowed;
    std::optional<QString> refusal;
    QStringList done;
    std::optional<FirstRunWindow> window;

    void SetUp() override
    {
        Preferences::registerDefaults(defaults);
        Motion::shared().setReduced(true);
    }

    void open(bool isSignedIn)
    {
        window.emplace(FirstRunWindow::Services{
            .hotkeys = {.preferences = preferences,
                        .isOffered = [](const MenuEntry& entry) { return entry.hotkey != HotkeyAction::pickColor; },
                        .refusal = [this](const QString& setting) -> std::optional<QString> {
                            return setting == Settings::hotkeyWindow.name ? refusal : std::nullopt;
                        },
                        .borrowedKeys = [this] { return borrowed; },
                        .changeKeys = [this] { done << "keys"; }},
            .login = {.isOn = [this] { return startsAtLogin; }, .set = [this](bool isOn) { startsAtLogin = isOn; }},
            .hasTray = true,
            .isSignedIn = isSignedIn,
            .signIn = [this] { done << "sign in"; },
            .capture = [this] { done << "capture"; },
            .showsCards = [] { return true; },
            .closed = [this] { done << (window->isSettled() ? "closed for good" : "closed"); }});
        present();
    }

    void present()
    {
        window->present();
        QApplication::setActiveWindow(&*window);
    }

    QWidget& page() { return *window->findChild<QStackedWidget*>()->currentWidget(); }

    QString title() { return page().findChildren<QLabel*>().first()->text(); }

    bool says(const QString& text)
    {
        for (const auto* label : page().findChildren<QLabel*>())
            if (label->isVisible() && label->text().contains(text))
                return true;
        return false;
    }
};

} // namespace

TEST_F(FirstRunWindowTest, TheReturnKeyAloneLeadsThroughAllOfIt)
{
    open(false);
    WindowWalk::press(Qt::Key_Return);
    WindowWalk::press(Qt::Key_Return);
    WindowWalk::press(Qt::Key_Return);
    EXPECT_EQ(done, QStringList({"sign in", "sign in"})) << "and waits for the account";
    window->setSignedIn(true);
    WindowWalk::press(Qt::Key_Return);
    WindowWalk::press(Qt::Key_Return);
    EXPECT_EQ(done.last(), "capture");
    EXPECT_TRUE(says("Super+Shift+4"));
    window->noteCapture();
    EXPECT_EQ(title(), "There it is");
    WindowWalk::press(Qt::Key_Return);
    WindowWalk::press(Qt::Key_Return);
    EXPECT_EQ(done.last(), "closed for good");
}

TEST_F(FirstRunWindowTest, ClosedEarlyItGoesOnWhereItWas)
{
    open(false);
    WindowWalk::press(Qt::Key_Return);
    const QString before = title();
    WindowWalk::press(Qt::Key_Escape);
    EXPECT_EQ(done, QStringList("closed"));
    EXPECT_FALSE(window->isVisible());
    present();
    EXPECT_EQ(title(), before);
    WindowWalk::press(Qt::Key_Return);
    EXPECT_EQ(done.last(), "sign in");
}

TEST_F(FirstRunWindowTest, TheKeyboardReachesEveryControlOfEveryPage)
{
    open(true);
    for (int step = 0; step < 4; ++step) {
        const QWidgetList chain = WindowWalk::tabChain();
        for (QWidget* button : WindowWalk::usableButtons(*window))
            EXPECT_TRUE(chain.contains(button)) << step << qPrintable(WindowWalk::text(button, QAccessible::Name));
        for (QWidget* control : chain)
            EXPECT_FALSE(WindowWalk::text(control, QAccessible::Name).isEmpty()) << step;
        if (step == 2)
            window->noteCapture();
        WindowWalk::press(Qt::Key_Return);
    }
}

TEST_F(FirstRunWindowTest, HotkeysAreThoseOfThisComputer)
{
    open(true);
    WindowWalk::press(Qt::Key_Return);
    const auto keys = [this] {
        QStringList names;
        for (auto* caps : page().findChildren<KeyCaps*>())
            if (caps->isVisible())
                names << caps->accessibleName();
        return names;
    };
    EXPECT_EQ(keys().size(), 8) << "what nothing runs has none";
    EXPECT_EQ(keys().first(), "Super+Shift+4");
    EXPECT_FALSE(says("borrows"));

    borrowed = {"Super+Shift+3", "Super+Shift+4"};
    refusal = "Super+Shift+5 belongs to another program";
    preferences.set(Settings::hotkeyArea, KeyCombo::fromText("Ctrl+Alt+P"));
    EXPECT_EQ(keys().first(), "Ctrl+Alt+P");
    EXPECT_TRUE(says("Super+Shift+3, Super+Shift+4"));
    EXPECT_TRUE(says("belongs to another program"));
    preferences.set(Settings::hotkeyFullScreen, std::nullopt);
    EXPECT_EQ(keys().size(), 7);
}

TEST_F(FirstRunWindowTest, StartingAtLoginIsOfferedAndShownAsItIs)
{
    open(true);
    window->noteCapture();
    for (int step = 0; step < 3; ++step)
        WindowWalk::press(Qt::Key_Return);
    auto* const toggle = page().findChild<ToggleSwitch*>();
    toggle->setFocus();
    WindowWalk::press(Qt::Key_Space);
    EXPECT_TRUE(startsAtLogin);
    startsAtLogin = false; // it could not be had
    window->refresh();
    EXPECT_FALSE(toggle->isChecked());
}

TEST_F(FirstRunWindowTest, NoTextIsCutOffWithALargerFont)
{
    borrowed = {"Super+Shift+3", "Super+Shift+4", "Super+Shift+5"};
    refusal = "Super+Shift+5 belongs to another program; it is tried again when that lets it go";
    const QFont before = QApplication::font();
    for (const int pixelSize : {13, 20, 26}) {
        QFont font = before;
        font.setPixelSize(pixelSize);
        QApplication::setFont(font);
        open(true);
        for (int step = 0; step < 4; ++step) {
            if (step == 3)
                window->noteCapture();
            QCoreApplication::processEvents();
            for (const auto* label : page().findChildren<QLabel*>())
                if (label->isVisible()) {
                    EXPECT_GE(label->height(), label->heightForWidth(label->width())) << qPrintable(label->text());
                    EXPECT_TRUE(window->rect().contains(QRect(label->mapTo(&*window, QPoint()), label->size())));
                }
            window->noteCapture();
            WindowWalk::press(Qt::Key_Return);
        }
    }
    QApplication::setFont(before);
}

TEST(PermissionWindow, LooksAgainUntilNothingStandsInTheWay)
{
    QString reason = "There is no way.";
    int cleared = 0;
    PermissionWindow window(
        {.reason = [&] { return reason; }, .steps = {"Log out.", "Log in."}, .cleared = [&] { ++cleared; }});
    const auto says = [&](const QString& text) {
        for (const auto* label : window.findChildren<QLabel*>())
            if (label->isVisible() && label->text() == text)
                return true;
        return false;
    };
    window.present();
    QApplication::setActiveWindow(&window);
    for (const char* text : {"There is no way.", "Log out.", "Log in."})
        EXPECT_TRUE(says(text)) << text;
    EXPECT_FALSE(says("Capturing is still not possible."));
    reason = "There still is none.";
    WindowWalk::press(Qt::Key_Return);
    EXPECT_TRUE(says("Capturing is still not possible.") && says(reason));
    EXPECT_EQ(cleared, 0);
    reason.clear();
    WindowWalk::press(Qt::Key_Space);
    EXPECT_EQ(cleared, 1);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FirstRunWindowTest, StepsAreCountedFromWhereOneReads)
{
    ProgressDots dots;
    dots.setProgress(0, 3);
    dots.resize(dots.sizeHint());
    const QImage usual = dots.grab().toImage();
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    const QImage mirrored = dots.grab().toImage();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    const QPoint first(dots.width() / 6, dots.height() / 2);
    const QPoint last(dots.width() - first.x(), first.y());
    EXPECT_NE(usual.pixel(first), usual.pixel(last));
    EXPECT_EQ(mirrored.pixel(last), usual.pixel(first));
    EXPECT_EQ(mirrored.pixel(first), usual.pixel(last));
}

} // namespace Kovrel
