#include "editorwindow/EditorWindow.h"

#include "editorwindow/DefaultEditorOffer.h"
#include "editorwindow/backdrop/BackdropPanel.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct EditorWindowTest : testing::Test {
    EditorWindowTest() { Preferences::registerDefaults(defaults); }

    EditorWindow& open(EditorDocument document = {})
    {
        QImage image(800, 600, QImage::Format_RGB32);
        image.fill(Qt::white);
        window = std::make_unique<EditorWindow>(
            services, EditedCaptures::Opened{{QUuid::createUuid(), image, 1, {}}, std::move(document), {}},
            EditorWindow::Kind::capture, "Capture");
        window->show();
        QApplication::setActiveWindow(window.get());
        return *window;
    }

    void press(int key, Qt::KeyboardModifiers keys = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, keys);
        QCoreApplication::sendEvent(window->focusWidget(), &event);
    }

    void click(const QString& name)
    {
        for (auto* const button : window->findChildren<QAbstractButton*>())
            if (button->accessibleName() == name)
                return button->click();
        ADD_FAILURE() << qUtf8Printable(name);
    }

    // Where Tab stops, from the canvas round to the canvas.
    std::vector<QWidget*> stops(bool isForth)
    {
        std::vector<QWidget*> found;
        window->canvas().setFocus();
        do {
            found.push_back(window->focusWidget());
            isForth ? press(Qt::Key_Tab) : press(Qt::Key_Backtab, Qt::ShiftModifier);
        } while (window->focusWidget() != found.front() && found.size() < 200);
        return found;
    }

    static QString nameOf(QWidget* widget)
    {
        const auto* const interface = QAccessible::queryAccessibleInterface(widget);
        return interface ? interface->text(QAccessible::Name) : QString();
    }

    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::FakeDesktop desktop{loop};
    Ports ports;
    EditorServices services{loop, workers, preferences, desktop.filePanel(), ports};
    std::unique_ptr<EditorWindow> window;
};

} // namespace

TEST_F(EditorWindowTest, TabStopsAtAllThereIsForthAndBackAndEachStopHasAName)
{
    EditorDocument document;
    document.composition.backdrop = EditorBackdrop();
    open(document);
    const std::pair<std::function<void()>, std::vector<QString>> states[] = {
        {[] {}, {"Canvas", "Done", "Arrow"}},
        {[this] { click("Find Text (Ctrl+F)"); }, {"Find", "How It Is Redacted"}},
        {[this] { click("Backdrop (Ctrl+B)"); }, {"Hover", "Lagoon", "Layout Padding", "Middle", "Light"}},
        {[this] { window->session().setTool(EditorTool::crop); },
         {"Apply the Crop", "Keep This Shape", "Shape of the Crop"}},
    };
    for (const auto& [make, expected] : states) {
        make();
        const auto forth = stops(true);
        QStringList names;
        for (QWidget* const stop : forth)
            names << nameOf(stop);
        EXPECT_FALSE(names.contains(QString())) << qUtf8Printable(names.join(", "));
        EXPECT_EQ(names.removeDuplicates(), 0) << qUtf8Printable(names.join(", "));
        for (const QString& name : expected)
            EXPECT_TRUE(names.contains(name)) << qUtf8Printable(name + " is not in " + names.join(", "));
        auto back = stops(false);
        std::reverse(back.begin() + 1, back.end());
        EXPECT_EQ(forth, back);
    }
}

TEST_F(EditorWindowTest, APictureOfTheUsersOwnIsThereOnceItIsRead)
{
    constexpr QColor color(200, 30, 150);
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(color);
    picture.save(folder / "own.png");
    EditorDocument document;
    document.composition.backdrop = EditorBackdrop();
    document.composition.backdrop.fill = {BackdropFill::Kind::picture, folder / "own.png"};
    AnnotationCanvasView& canvas = open(document).canvas();
    const auto shows = [&] {
        const QImage seen = canvas.grab().toImage();
        for (int x = 0; x < seen.width(); ++x)
            if (seen.pixelColor(x, seen.height() / 2) == color)
                return true;
        return false;
    };
    EXPECT_FALSE(shows()) << "nobody waits for the disk";
    workers.runAll();
    loop.runPosted();
    EXPECT_TRUE(shows());
}

TEST_F(EditorWindowTest, EscapeLeavesThePanelBeforeItClosesTheWindow)
{
    preferences.set(Settings::escCopiesAndCloses, false);
    open();
    click("Backdrop (Ctrl+B)");
    auto* const title = window->findChild<BackdropPanel*>()->findChild<QPushButton*>();
    title->setFocus();
    press(Qt::Key_Escape);
    EXPECT_TRUE(window->canvas().hasFocus());
    EXPECT_TRUE(window->isVisible());
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

// Only where there is something to choose, and never again.
TEST_F(EditorWindowTest, AsksOnceWhetherPicturesAreItsOwn)
{
    const FileProgram kovrel{.id = "com.kovrel.Kovrel.desktop", .name = "Kovrel"};
    const FileProgram viewer{.id = "viewer.desktop", .name = "Viewer"};
    const std::pair<std::vector<FileProgram>, bool> cases[] = {
        {{}, false}, {{kovrel, viewer}, false}, {{viewer}, false}, {{viewer, kovrel}, true}, {{viewer, kovrel}, false},
    };
    for (const auto& [programs, isAsked] : cases) {
        desktop.programs().programs = programs;
        QWidget parent;
        auto* const offer = new DefaultEditorOffer(desktop.programs(), preferences);
        offer->setParent(&parent);
        parent.show();
        loop.advance(std::chrono::milliseconds(10));
        EXPECT_EQ(offer->isVisible(), isAsked);
        for (auto* const button : offer->findChildren<QAbstractButton*>())
            if (isAsked && button->text() == "Open with Kovrel")
                button->click();
        EXPECT_FALSE(offer->isVisible());
    }
    EXPECT_THAT(desktop.programs().preferred, testing::Contains("com.kovrel.Kovrel.desktop: a.png"));
    EXPECT_THAT(desktop.programs().preferred, testing::Contains("com.kovrel.Kovrel.desktop: a.heic"));
}

} // namespace Kovrel
