#include "settings/SettingsWindow.h"

#include "model/VirtualKeys.h"
#include "settings/RemarkLine.h"
#include "settings/SettingRowView.h"
#include "settings/controls/HotkeyButton.h"
#include "settings/pages/CapturePage.h"
#include "settings/pages/CardsPage.h"
#include "settings/pages/EditorPage.h"
#include "settings/pages/GeneralPage.h"
#include "settings/pages/HistoryPage.h"
#include "settings/pages/SavingPage.h"
#include "settings/pages/ShortcutsPage.h"
#include "settings/pages/TextPage.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"
#include "tests/support/desktop/FakeFilePanel.h"
#include "tests/support/desktop/FakeKeyGrabs.h"
#include "ui/controls/ChoiceBox.h"
#include "ui/controls/ColorWell.h"
#include "ui/controls/LineField.h"
#include "ui/controls/SymbolButton.h"
#include "ui/controls/ToggleSwitch.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSlider>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct SettingsWindowTest : testing::Test {
    Testing::TempFolder folder;
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::FakeFilePanel panel{loop};
    Testing::FakeKeyGrabs keys;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    Observers<> refusals;
    std::optional<QString> refusal;
    std::optional<SettingsWindow> window;
    ColorCompletion completion; // of a colour that is being picked from the screen

    void SetUp() override
    {
        Preferences::registerDefaults(defaults);
        window.emplace(preferences, pages());
    }

    std::vector<SettingsPage> pages()
    {
        std::vector<SettingsPage> pages = SavingPage::make({loop, workers, panel, preferences});
        const auto nothing = [](QWindow*) {};
        pages.push_back(
            GeneralPage::make(preferences, {.loginItem = {.read = [] { return true; }, .write = [](auto) {}},
                                            .exportSettings = nothing,
                                            .importSettings = nothing}));
        pages.push_back(CapturePage::make(preferences));
        pages.push_back(CardsPage::make(preferences, "help"));
        pages.push_back(
            EditorPage::make(preferences, [this](ColorCompletion picked) { completion = std::move(picked); }));
        pages.push_back(HistoryPage::make({preferences, [] { return 2; }, [](int) { return 0; }}));
        pages.push_back(ShortcutsPage::make({.keys = keys,
                                             .preferences = preferences,
                                             .refusal = [this](HotkeyAction) { return refusal; },
                                             .onRefusals = [this](auto changed) { return refusals.add(changed); },
                                             .borrowed = [] { return QStringList(); },
                                             .giveBack = [] {}}));
        pages.push_back(TextPage::make(preferences, [](const auto& reply) { reply({"eng", "deu"}); }));
        return pages;
    }

    SettingRowView* row(const QString& label)
    {
        for (auto* view : window->findChildren<SettingRowView*>())
            if (view->row().label == label)
                return view;
        throw std::out_of_range(label.toStdString());
    }

    template <class T>
    T* control(const QString& label)
    {
        return row(label)->findChild<T*>();
    }

    void search(const QString& query) { window->findChild<LineField*>()->setText(query); }

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QPointer<QWidget> focus = QApplication::focusWidget();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers);
            if (focus)
                QApplication::sendEvent(focus, &event);
        }
    }

    QString shownRemark(const QString& label)
    {
        for (auto* text : row(label)->findChildren<QLabel*>())
            if (!text->isHidden() && text->text() != label && text->text() != row(label)->row().hint)
                return text->text();
        return {};
    }

    void answer(const char* button)
    {
        auto* const box = window->findChild<QMessageBox*>();
        ASSERT_TRUE(box);
        for (auto* candidate : box->buttons())
            if (candidate->text().remove('&') == button)
                candidate->click();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

// Counts what is shown as a window of its own while it lives, as a part is that is shown before it has a parent: it
// flashes, and takes the keyboard from whoever types.
struct ShownWindows : QObject {
    ShownWindows() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        count += event->type() == QEvent::Show && watched->isWidgetType() && static_cast<QWidget*>(watched)->isWindow();
        return false;
    }

    int count = 0;
};

QString accessibleName(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

} // namespace

TEST_F(SettingsWindowTest, WhatCouldNotBeStoredIsToldAtTheFootUntilItIs)
{
    const auto foot = [this] { return window->findChildren<RemarkLine*>().last(); };
    window->present(SettingsTab::capture);
    {
        const Testing::FileSizeLimit full(0);
        control<ToggleSwitch>("Freeze the screen while selecting")->click();
        EXPECT_TRUE(foot()->isVisible());
        EXPECT_TRUE(foot()->text().contains(folder / "kovrel.conf")) << qPrintable(foot()->text());
        window.emplace(preferences, pages());
        window->present(SettingsTab::saving);
        EXPECT_TRUE(foot()->isVisible()) << "a window that comes later tells it, too";
    }
    defaults.set("selfTimerSeconds", 3);
    EXPECT_FALSE(foot()->isVisible());
    EXPECT_TRUE(UserDefaults(folder / "kovrel.conf").boolean("freezeScreenDuringSelection"));
}

TEST_F(SettingsWindowTest, NothingTakesTheKeyboardFromWhoeverTypesASearch)
{
    window->present(SettingsTab::general);
    const ShownWindows shown;
    for (const char* query : {"m", "me", "s", ""})
        search(query);
    EXPECT_EQ(shown.count, 0);
}

TEST_F(SettingsWindowTest, WindowsThatAreReadFromTheRightHaveTheSameRoom)
{
    const auto placeOfSearch = [this] {
        window.emplace(preferences, pages());
        window->present(SettingsTab::saving);
        auto* const field = window->findChild<LineField*>();
        return QRect(field->mapTo(&*window, QPoint()), field->size());
    };
    const QRect usual = placeOfSearch();
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    const QRect mirrored = placeOfSearch();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    EXPECT_EQ(window->width() - 1 - mirrored.right(), usual.left());
    EXPECT_EQ(mirrored.size(), usual.size());
}

TEST_F(SettingsWindowTest, AChangeHoldsAtOnceAndOneFromElsewhereIsSeen)
{
    window->present(SettingsTab::capture);
    auto* const freezing = control<ToggleSwitch>("Freeze the screen while selecting");
    freezing->click();
    EXPECT_TRUE(preferences.get(Settings::freezeScreenDuringSelection));
    defaults.set("freezeScreenDuringSelection", false);
    EXPECT_FALSE(freezing->isChecked());

    auto* const timer = control<ChoiceBox>("Count down from");
    defaults.set("selfTimerSeconds", 17);
    EXPECT_EQ(timer->currentText(), "17 seconds");
    defaults.set("selfTimerSeconds", 0);
    EXPECT_EQ(timer->currentText(), "5 seconds");
    EXPECT_EQ(timer->findText("17 seconds"), -1);

    EXPECT_FALSE(control<ColorWell>("Colour behind windows")->isEnabled());
    defaults.set("windowBackdropStyle", "solidColor");
    EXPECT_TRUE(control<ColorWell>("Colour behind windows")->isEnabled());
}

TEST_F(SettingsWindowTest, AColourIsPickedFromTheScreen)
{
    const auto actions = [this](const QString& label) {
        auto* const well = control<ColorWell>(label);
        well->click();
        return well->findChild<QMenu*>()->actions();
    };
    const auto picks = [](const QAction* action) { return action->text() == "Pick from Screen"; };
    window->present(SettingsTab::capture);
    defaults.set("windowBackdropStyle", "solidColor");
    EXPECT_TRUE(std::ranges::none_of(actions("Colour behind windows"), picks)) << "where nothing lets one pick";

    window->present(SettingsTab::editor);
    const QList<QAction*> offered = actions("Colour");
    const auto found = std::ranges::find_if(offered, picks);
    ASSERT_NE(found, offered.end());
    (*found)->trigger();
    ASSERT_TRUE(completion);
    completion(std::unexpected(QString()));
    EXPECT_NE(preferences.get(Settings::annotationColorHex), "#102030");
    completion("#102030");
    EXPECT_EQ(preferences.get(Settings::annotationColorHex), "#102030");
    window.reset();
    completion("#405060");
    EXPECT_EQ(preferences.get(Settings::annotationColorHex), "#102030") << "the window is gone";
}

TEST_F(SettingsWindowTest, ASliderSetsWhenItIsLetGoAndATextAsItIsTyped)
{
    window->present(SettingsTab::saving);
    preferences.set(Settings::imageFormat, ImageFormat::jpeg);
    auto* const quality = control<QSlider>("Quality of JPEG and HEIC");
    quality->setSliderDown(true);
    quality->setSliderPosition(10);
    EXPECT_EQ(preferences.get(Settings::jpegQuality), 0.9);
    quality->setSliderDown(false);
    EXPECT_DOUBLE_EQ(preferences.get(Settings::jpegQuality), 0.5);
    EXPECT_EQ(quality->parentWidget()->findChild<QLabel*>()->text(), "50 %");

    auto* const name = control<LineField>("Filename template");
    name->setFocus();
    name->selectAll();
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_B}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(QChar(key)));
        QApplication::sendEvent(name, &event);
    }
    EXPECT_EQ(preferences.get(Settings::fileNameTemplate), "AB");
    EXPECT_EQ(shownRemark("Filename template"), "Example: AB.jpeg");
}

TEST_F(SettingsWindowTest, ARowAndAPageGoBackToWhatTheyWere)
{
    window->present(SettingsTab::capture);
    const auto reset = [&](const QString& label) { return control<SymbolButton>(label); };
    EXPECT_TRUE(reset("Count down from")->isHidden());
    preferences.set(Settings::selfTimerSeconds, 10);
    preferences.set(Settings::showCursorInCapture, false);
    preferences.set(Settings::jpegQuality, 0.2);
    ASSERT_FALSE(reset("Count down from")->isHidden());
    reset("Count down from")->click();
    EXPECT_FALSE(preferences.isStored(Settings::selfTimerSeconds));
    EXPECT_TRUE(reset("Count down from")->isHidden());

    for (auto* button : window->findChildren<QPushButton*>())
        if (button->text() == "Reset This Page")
            button->click();
    EXPECT_FALSE(preferences.isStored(Settings::showCursorInCapture));
    EXPECT_TRUE(preferences.isStored(Settings::jpegQuality)) << "another page";
}

TEST_F(SettingsWindowTest, TurningTheHistoryOffIsAskedAbout)
{
    window->present(SettingsTab::history);
    auto* const keeping = control<ToggleSwitch>("Keep captures in the history");
    keeping->click();
    EXPECT_TRUE(preferences.get(Settings::historyEnabled)) << "not yet";
    answer("Cancel");
    EXPECT_TRUE(preferences.get(Settings::historyEnabled));
    EXPECT_TRUE(keeping->isChecked());
    keeping->click();
    answer("Turn Off");
    EXPECT_FALSE(preferences.get(Settings::historyEnabled));
    keeping->click();
    EXPECT_TRUE(preferences.get(Settings::historyEnabled)) << "on again, unasked";
}

TEST_F(SettingsWindowTest, ATabIsRememberedAndOnlyWhatIsSeenIsBuilt)
{
    preferences.set(Settings::settingsSelectedTab, "history");
    window->present();
    EXPECT_EQ(window->findChildren<SettingRowView*>().size(), 3);
    window->present(SettingsTab::capture);
    EXPECT_EQ(preferences.get(Settings::settingsSelectedTab), "capture");

    QApplication::setActiveWindow(&*window);
    search("corner");
    QStringList found;
    for (const auto* view : window->findChildren<SettingRowView*>())
        found << view->row().label;
    EXPECT_EQ(found, (QStringList{"Corner of the screen", "Rounded corners"}));
    search("nonsense");
    EXPECT_TRUE(window->findChildren<SettingRowView*>().isEmpty());
    press(Qt::Key_Escape);
    EXPECT_EQ(window->findChildren<SettingRowView*>().size(), 6) << "the tab again";
    EXPECT_TRUE(window->isVisible());
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());

    preferences.set(Settings::settingsSelectedTab, "of another version");
    window->present();
    EXPECT_EQ(preferences.get(Settings::settingsSelectedTab), "general");
}

TEST_F(SettingsWindowTest, TheTabulatorReachesEveryControlForthAndBackAndEachHasAName)
{
    for (const auto& [tab, name] : RawStrings<SettingsTab>::table) {
        if (tab == SettingsTab::sounds)
            continue;
        window->present(tab);
        QApplication::setActiveWindow(&*window);
        QWidgetList forth;
        for (QWidget* focus = QApplication::focusWidget(); focus && !forth.contains(focus);
             focus = QApplication::focusWidget()) {
            forth << focus;
            press(Qt::Key_Tab);
        }
        QWidgetList back;
        for (QWidget* focus = QApplication::focusWidget(); focus && !back.contains(focus);
             focus = QApplication::focusWidget()) {
            back.prepend(focus);
            press(Qt::Key_Backtab, Qt::ShiftModifier);
        }
        EXPECT_EQ(QSet(forth.begin(), forth.end()), QSet(back.begin(), back.end())) << name;
        for (auto* view : window->findChildren<SettingRowView*>()) {
            const bool isReached = std::ranges::any_of(forth, [&](QWidget* stop) { return view->isAncestorOf(stop); });
            const bool isUsable = !view->row().isEnabled || view->row().isEnabled();
            EXPECT_EQ(isReached, isUsable) << qPrintable(view->row().label);
        }
        for (QWidget* stop : forth)
            EXPECT_FALSE(accessibleName(stop).isEmpty()) << name << ' ' << stop->metaObject()->className();
    }
}

TEST_F(SettingsWindowTest, ANewHotkeyIsTypedWhileNobodyElseHearsIt)
{
    window->present(SettingsTab::shortcuts);
    auto* const area = control<HotkeyButton>("Capture Area");
    EXPECT_EQ(area->text(), "Super+Shift+4");
    area->click();
    ASSERT_TRUE(keys.isListenedTo());
    keys.type(0, VirtualKeys::a);
    EXPECT_TRUE(keys.isListenedTo()) << "not without a modifier";
    keys.type(KeyCombo::command, {});
    keys.type(KeyCombo::command, VirtualKeys::a);
    EXPECT_FALSE(keys.isListenedTo());
    EXPECT_EQ(preferences.get(Settings::hotkeyArea), (KeyCombo{VirtualKeys::a, KeyCombo::command}));
    EXPECT_EQ(area->text(), "Super+A");

    area->click();
    keys.type(0, VirtualKeys::escape);
    EXPECT_EQ(area->text(), "Super+A");
    area->click();
    keys.type(0, VirtualKeys::backspace);
    EXPECT_EQ(area->text(), "None");
    EXPECT_FALSE(preferences.get(Settings::hotkeyArea));
    EXPECT_TRUE(preferences.isStored(Settings::hotkeyArea));
}

TEST_F(SettingsWindowTest, TheKeyboardIsGivenBackWhateverEndsTheRecorder)
{
    window->present(SettingsTab::shortcuts);
    QApplication::setActiveWindow(&*window);
    const auto begin = [&] {
        auto* const recorder = control<HotkeyButton>("Capture Area");
        recorder->setFocus();
        recorder->click();
        EXPECT_TRUE(keys.isListenedTo());
        return recorder;
    };
    begin()->click();
    EXPECT_FALSE(keys.isListenedTo()) << "a second click";
    begin();
    control<HotkeyButton>("Capture Window")->setFocus();
    EXPECT_FALSE(keys.isListenedTo()) << "another control";
    begin();
    search("history");
    EXPECT_FALSE(keys.isListenedTo()) << "another page";
    search("");
    begin();
    window->close();
    EXPECT_FALSE(keys.isListenedTo()) << "no window";

    keys.isHeldByAnother = true;
    window->present(SettingsTab::shortcuts);
    control<HotkeyButton>("Capture Area")->click();
    EXPECT_FALSE(keys.isListenedTo());
}

TEST_F(SettingsWindowTest, AConflictIsSaidInItsRowAtOnceAndGoesWithIt)
{
    window->present(SettingsTab::shortcuts);
    EXPECT_EQ(shownRemark("Capture Last Area"), "");
    refusal = "Super+Shift+6 belongs to another program";
    refusals.notify();
    EXPECT_EQ(shownRemark("Capture Last Area"), *refusal);
    refusal.reset();
    refusals.notify();
    EXPECT_EQ(shownRemark("Capture Last Area"), "");
}

} // namespace Kovrel
