#include "editorwindow/EditorWindow.h"

#include "editorwindow/DefaultEditorOffer.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

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
    EditorServices services{loop, workers, preferences, desktop.savePanel(), ports};
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
