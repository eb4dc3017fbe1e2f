#include "welcome/HomeWindow.h"

#include "tests/support/TempFolder.h"
#include "tests/support/WindowWalk.h"
#include "ui/controls/PlainButton.h"
#include "ui/controls/RowButton.h"
#include "ui/tokens/Theme.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPalette>
#include <QScreen>
#include <QScrollArea>

#include <gtest/gtest.h>

namespace Kovrel {

namespace WindowWalk = Testing::WindowWalk;

namespace {

struct HomeWindowTest : testing::Test {
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    bool isSignedIn = true;
    int signIns = 0;
    QStringList performed;
    int signOuts = 0;
    std::optional<QString> newerVersion;
    HomeWindow window{preferences,
                      "1.2",
                      {
                          .isSignedIn = [this] { return isSignedIn; },
                          .account = [this] { return isSignedIn ? AccountKind::thisComputer : AccountKind::none; },
                          .signIn = [this] { ++signIns; },
                          .signOut = [this] { ++signOuts; },
                          .obstacle = [] { return QString(); },
                          .newerVersion = [this] { return newerVersion; },
                          .isEnabled = [](const auto& entry) { return entry.arguments.front() == "capture"; },
                          .perform = [this](const auto& entry) { performed << entry.label; },
                      }};

    void SetUp() override { Preferences::registerDefaults(defaults); }

    void show()
    {
        window.present();
        QApplication::setActiveWindow(&window);
    }
};

} // namespace

TEST_F(HomeWindowTest, TheKeyboardReachesEveryControlAndEachHasAName)
{
    for (const bool signedIn : {false, true}) {
        isSignedIn = signedIn;
        show();
        const QWidgetList chain = WindowWalk::tabChain();
        EXPECT_EQ(QSet<QWidget*>(chain.begin(), chain.end()).size(), signedIn ? 7 : 1);
        for (QWidget* button : WindowWalk::usableButtons(window))
            EXPECT_TRUE(chain.contains(button)) << qPrintable(WindowWalk::text(button, QAccessible::Name));
        for (QWidget* control : chain) {
            EXPECT_FALSE(WindowWalk::text(control, QAccessible::Name).isEmpty());
            EXPECT_EQ(QAccessible::queryAccessibleInterface(control)->role(), QAccessible::Button);
        }
        window.hide();
    }
}

TEST_F(HomeWindowTest, ThePressedControlDoesWhatItSays)
{
    isSignedIn = false;
    show();
    WindowWalk::press(Qt::Key_Space);
    EXPECT_EQ(signIns, 1);

    isSignedIn = true;
    window.refresh();
    for (QWidget* button : window.findChildren<RowButton*>()) {
        if (!button->isEnabled())
            continue;
        button->setFocus();
        WindowWalk::press(Qt::Key_Space);
        EXPECT_EQ(performed.value(performed.size() - 1), WindowWalk::text(button, QAccessible::Name));
    }
    EXPECT_EQ(performed.size(), 6);
}

TEST_F(HomeWindowTest, SigningOutIsAskedAboutFirst)
{
    show();
    for (const bool isWanted : {false, true}) {
        window.findChild<PlainButton*>()->click();
        auto* const question = window.findChild<QMessageBox*>();
        ASSERT_TRUE(question);
        for (QAbstractButton* button : question->buttons())
            if ((button->text() == "Sign Out") == isWanted) {
                button->click();
                break;
            }
        EXPECT_EQ(signOuts, isWanted ? 1 : 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(HomeWindowTest, ANewerVersionIsToldAsLongAsItIsKnown)
{
    const auto tells = [this] {
        for (const auto* label : window.findChildren<QLabel*>())
            if (label->isVisible() && label->text().contains("1.3"))
                return true;
        return false;
    };
    show();
    for (const char* version : {"", "1.3", ""}) {
        newerVersion = *version ? std::optional<QString>(version) : std::nullopt;
        window.refresh();
        EXPECT_EQ(tells(), bool(*version));
    }
}

TEST_F(HomeWindowTest, RowsTellTheirKeys)
{
    show();
    const auto rows = window.findChildren<RowButton*>();
    ASSERT_EQ(size_t(rows.size()), CommandTable::menu().size());
    EXPECT_EQ(WindowWalk::text(rows.first(), QAccessible::Description), preferences.get(Settings::hotkeyArea)->text());
}

TEST_F(HomeWindowTest, SpeaksTheLanguageOfTheUser)
{
    WindowWalk::Bracketed language;
    QCoreApplication::installTranslator(&language);
    HomeWindow translated(preferences, "1.2",
                          {.isSignedIn = [] { return false; },
                           .account = [] { return AccountKind::web; },
                           .signIn = [] {},
                           .signOut = [] {},
                           .obstacle = [] { return QString(); },
                           .newerVersion = [] { return std::optional<QString>("2"); },
                           .isEnabled = [](const auto&) { return true; },
                           .perform = [](const auto&) {}});
    translated.refresh();
    for (const auto* button : translated.findChildren<QAbstractButton*>())
        EXPECT_TRUE(button->text().startsWith('[')) << qPrintable(button->text());
    for (const auto* label : translated.findChildren<QLabel*>())
        EXPECT_TRUE(label->text().isEmpty() || label->text().startsWith('[')) << qPrintable(label->text());
    QCoreApplication::removeTranslator(&language);
}

namespace {

// What is scrolled. False for the room it is scrolled in, of which there may be a part.
bool bringIntoSight(QWidget* widget, QScrollArea& commands)
{
    if (widget == &commands || widget == commands.viewport() || widget == commands.widget())
        return false;
    if (commands.widget()->isAncestorOf(widget))
        commands.ensureWidgetVisible(widget);
    return true;
}

} // namespace

TEST_F(HomeWindowTest, NoTextIsCutOffWithALargerFont)
{
    const QFont before = QApplication::font();
    for (const int pixelSize : {13, 20, 26, 32}) {
        QFont font = before;
        font.setPixelSize(pixelSize);
        QApplication::setFont(font);
        for (const bool signedIn : {false, true}) {
            isSignedIn = signedIn;
            window.showNotice("Something that takes more than a single line to be said in this small window.");
            show();
            QCoreApplication::processEvents();
            EXPECT_LE(window.height(), window.screen()->availableSize().height()) << pixelSize;
            auto& commands = *window.findChild<QScrollArea*>();
            for (QWidget* widget : window.findChildren<QWidget*>()) {
                if (!widget->isVisible() || !bringIntoSight(widget, commands))
                    continue;
                EXPECT_TRUE(window.rect().contains(QRect(widget->mapTo(&window, QPoint()), widget->size())));
                if (qobject_cast<const QAbstractButton*>(widget))
                    EXPECT_GE(widget->width(), widget->sizeHint().width()) << pixelSize;
                const int height =
                    widget->hasHeightForWidth() ? widget->heightForWidth(widget->width()) : widget->sizeHint().height();
                EXPECT_GE(widget->height(), height) << pixelSize;
            }
            window.hide();
        }
    }
    QApplication::setFont(before);
}

TEST_F(HomeWindowTest, StaysOnTheScreenWithANoticeThatComesLater)
{
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPixelSize(24);
    QApplication::setFont(font);
    show();
    window.showNotice("Kovrel was updated to version 1.2.");
    QCoreApplication::processEvents();
    EXPECT_LE(window.height(), window.screen()->availableSize().height());
    QApplication::setFont(before);
}

TEST_F(HomeWindowTest, FollowsColoursAndFontsOfTheDesktopWhileItIsOpen)
{
    const QPalette palette = QApplication::palette();
    const QFont font = QApplication::font();
    show();
    for (const bool isDark : {true, false}) {
        const Theme& theme = Theme::of({.isDark = isDark});
        QApplication::setPalette(QPalette(isDark ? QColor(50, 50, 60) : QColor(220, 220, 230)));
        EXPECT_EQ(window.palette().color(QPalette::Window), theme.window);
        EXPECT_EQ(window.findChild<QLabel*>()->palette().color(QPalette::WindowText), theme.text);
    }
    QFont larger = font;
    larger.setPixelSize(26);
    const QSize before = window.sizeHint();
    QApplication::setFont(larger);
    EXPECT_GT(window.sizeHint().width(), before.width() * 3 / 2);
    EXPECT_GT(window.sizeHint().height(), before.height());
    QApplication::setFont(font);
    QApplication::setPalette(palette);
}

} // namespace Kovrel
