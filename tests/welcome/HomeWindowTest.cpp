#include "welcome/HomeWindow.h"

#include "tests/support/TempFolder.h"
#include "ui/RowButton.h"
#include "ui/tokens/Theme.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPalette>
#include <QTranslator>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct HomeWindowTest : testing::Test {
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    bool isSignedIn = true;
    int signIns = 0;
    QStringList performed;
    HomeWindow window{preferences,
                      {
                          .isSignedIn = [this] { return isSignedIn; },
                          .signIn = [this] { ++signIns; },
                          .obstacle = [] { return QString(); },
                          .isEnabled = [](const auto& entry) { return entry.arguments.front() == "capture"; },
                          .perform = [this](const auto& entry) { performed << entry.label; },
                      }};

    void SetUp() override { Preferences::registerDefaults(defaults); }

    void show()
    {
        window.present();
        QApplication::setActiveWindow(&window);
    }

    static void press(Qt::Key key)
    {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QApplication::sendEvent(QApplication::focusWidget(), &event);
        }
    }

    // What the tabulator visits until it comes back to where it began.
    static QWidgetList tabChain()
    {
        QWidgetList chain;
        for (QWidget* focus = QApplication::focusWidget(); focus && !chain.contains(focus);
             focus = QApplication::focusWidget()) {
            chain << focus;
            press(Qt::Key_Tab);
        }
        return chain;
    }

    QWidgetList usableButtons() const
    {
        QWidgetList buttons;
        for (auto* button : window.findChildren<QAbstractButton*>())
            if (button->isVisible() && button->isEnabled())
                buttons << button;
        return buttons;
    }
};

// Every text in another language, of a kind.
struct Bracketed : QTranslator {
    bool isEmpty() const override { return false; }

    QString translate(const char*, const char* text, const char*, int) const override
    {
        return '[' + QString::fromUtf8(text) + ']';
    }
};

QString accessibleText(QWidget* widget, QAccessible::Text kind)
{
    return QAccessible::queryAccessibleInterface(widget)->text(kind);
}

} // namespace

TEST_F(HomeWindowTest, TheKeyboardReachesEveryControlAndEachHasAName)
{
    for (const bool signedIn : {false, true}) {
        isSignedIn = signedIn;
        show();
        const QWidgetList chain = tabChain();
        EXPECT_EQ(QSet<QWidget*>(chain.begin(), chain.end()).size(), signedIn ? 6 : 1);
        for (QWidget* button : usableButtons())
            EXPECT_TRUE(chain.contains(button)) << qPrintable(accessibleText(button, QAccessible::Name));
        for (QWidget* control : chain) {
            EXPECT_FALSE(accessibleText(control, QAccessible::Name).isEmpty());
            EXPECT_EQ(QAccessible::queryAccessibleInterface(control)->role(), QAccessible::Button);
        }
        window.hide();
    }
}

TEST_F(HomeWindowTest, ThePressedControlDoesWhatItSays)
{
    isSignedIn = false;
    show();
    press(Qt::Key_Space);
    EXPECT_EQ(signIns, 1);

    isSignedIn = true;
    window.refresh();
    for (QWidget* button : usableButtons()) {
        button->setFocus();
        press(Qt::Key_Space);
        EXPECT_EQ(performed.value(performed.size() - 1), accessibleText(button, QAccessible::Name));
    }
    EXPECT_EQ(performed.size(), 6);
}

TEST_F(HomeWindowTest, RowsTellTheirKeys)
{
    show();
    const auto rows = window.findChildren<RowButton*>();
    ASSERT_EQ(size_t(rows.size()), CommandTable::menu().size());
    EXPECT_EQ(accessibleText(rows.first(), QAccessible::Description), preferences.get(Settings::hotkeyArea)->text());
}

TEST_F(HomeWindowTest, SpeaksTheLanguageOfTheUser)
{
    Bracketed language;
    QCoreApplication::installTranslator(&language);
    HomeWindow translated(preferences, {.isSignedIn = [] { return false; },
                                        .signIn = [] {},
                                        .obstacle = [] { return QString(); },
                                        .isEnabled = [](const auto&) { return true; },
                                        .perform = [](const auto&) {}});
    translated.refresh();
    for (const auto* button : translated.findChildren<QAbstractButton*>())
        EXPECT_TRUE(button->text().startsWith('[')) << qPrintable(button->text());
    for (const auto* label : translated.findChildren<QLabel*>())
        EXPECT_TRUE(label->text().isEmpty() || label->text().startsWith('[')) << qPrintable(label->text());
    QCoreApplication::removeTranslator(&language);
}

TEST_F(HomeWindowTest, NoTextIsCutOffWithALargerFont)
{
    const QFont before = QApplication::font();
    for (const int pixelSize : {13, 20, 26}) {
        QFont font = before;
        font.setPixelSize(pixelSize);
        QApplication::setFont(font);
        for (const bool signedIn : {false, true}) {
            isSignedIn = signedIn;
            window.showNotice("Something that takes more than a single line to be said in this small window.");
            show();
            QCoreApplication::processEvents();
            for (const QWidget* widget : window.findChildren<QWidget*>()) {
                if (!widget->isVisible())
                    continue;
                EXPECT_TRUE(window.rect().contains(QRect(widget->mapTo(&window, QPoint()), widget->size())));
                if (qobject_cast<const QAbstractButton*>(widget))
                    EXPECT_GE(widget->width(), widget->sizeHint().width()) << pixelSize;
                const int height = qobject_cast<const QLabel*>(widget) ? widget->heightForWidth(widget->width())
                                                                       : widget->sizeHint().height();
                EXPECT_GE(widget->height(), height) << pixelSize;
            }
            window.hide();
        }
    }
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
    EXPECT_GT(window.sizeHint().height(), before.height() * 4 / 3);
    QApplication::setFont(font);
    QApplication::setPalette(palette);
}

} // namespace Kovrel
