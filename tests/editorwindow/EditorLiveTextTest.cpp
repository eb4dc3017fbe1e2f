#include "editorwindow/EditorWindow.h"
#include "livetext/layer/LiveTextLayer.h"
#include "tests/support/FakeCaptureServices.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

// An editor of a capture in which one line of text is read.
struct EditorLiveTextTest : testing::Test {
    EditorLiveTextTest()
    {
        fake.reading.text.lines = {{.text = "some words", .confidence = 1, .boundingBox = {0.25, 0.5, 0.5, 0.1}}};
        QImage image(800, 600, QImage::Format_RGB32);
        image.fill(Qt::white);
        window = std::make_unique<EditorWindow>(services,
                                                EditedCaptures::Opened{{QUuid::createUuid(), image, 1, {}}, {}, {}},
                                                EditorWindow::Kind::capture, "Capture");
        window->show();
        QApplication::setActiveWindow(window.get());
    }

    void toggle()
    {
        for (auto* const button : window->findChildren<QAbstractButton*>())
            if (button->accessibleName() == "Select Text (Ctrl+T)")
                button->click();
        fake.loop.runPosted();
    }

    LiveTextLayer& layer() const { return *window->findChild<LiveTextLayer*>(); }

    // Places of the capture's picture.
    void drag(Point from, Point to)
    {
        const QPointF begin = window->canvas().widgetPoint(from);
        const QPointF end = window->canvas().widgetPoint(to);
        send(QEvent::MouseButtonPress, begin);
        send(QEvent::MouseMove, end);
        send(QEvent::MouseButtonRelease, end);
    }

    void send(QEvent::Type type, QPointF at)
    {
        QMouseEvent event(type, at, layer().mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
        QApplication::sendEvent(&layer(), &event);
    }

    void pressEscape()
    {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Escape, {});
        QApplication::sendEvent(window->focusWidget(), &event);
    }

    Testing::FakeCaptureServices fake;
    EditorServices services{
        fake.loop,  fake.workers,       fake.preferences, fake.desktop.filePanel(), fake.desktop.clipboard(),
        fake.ports, fake.folder / "tmp"};
    std::unique_ptr<EditorWindow> window;
};

} // namespace

TEST_F(EditorLiveTextTest, TextIsSelectedWhereItIsSeenAlsoEnlarged)
{
    toggle();
    ASSERT_TRUE(layer().isVisible());
    for (const double percent : {100.0, 150.0}) {
        window->canvas().setZoomPercent(percent);
        drag({200, 330}, {400, 330});
        EXPECT_EQ(layer().selectedText(), "some ") << percent;
    }
}

TEST_F(EditorLiveTextTest, EscapeEndsTheSelectionThenTheModeAndADrawingToolEndsItToo)
{
    window->session().setTool(EditorTool::arrow);
    toggle();
    drag({200, 330}, {600, 330});
    EXPECT_TRUE(window->session().document().marks.empty()) << "the tool in hand would draw";
    pressEscape();
    EXPECT_EQ(layer().selectedText(), "");
    EXPECT_TRUE(layer().isVisible());
    pressEscape();
    EXPECT_FALSE(layer().isVisible());
    EXPECT_TRUE(window->isVisible());
    toggle();
    window->session().setTool(EditorTool::pen);
    EXPECT_FALSE(layer().isVisible());
}

TEST_F(EditorLiveTextTest, ACodeWithoutAnyTextIsWaitedFor)
{
    fake.reading.text.lines.clear();
    fake.codesFound = {{"https://example.org", {0.4, 0.4, 0.2, 0.2}}};
    toggle();
    EXPECT_TRUE(layer().isVisible());
    EXPECT_TRUE(fake.lastToast.message.isEmpty());
}

TEST_F(EditorLiveTextTest, WithoutTextItSaysSoAndEnds)
{
    fake.reading.text.lines.clear();
    toggle();
    EXPECT_FALSE(layer().isVisible());
    EXPECT_EQ(fake.lastToast.message, "No text found in the capture");
    EXPECT_EQ(window->session().tool(), EditorTool::select);
}

} // namespace Kovrel
