#include "editorwindow/EditorWindow.h"

#include "editorwindow/DefaultEditorOffer.h"
#include "editorwindow/backdrop/BackdropPanel.h"
#include "platform/ImageCodec.h"
#include "ports/CaptureDelivery.h"
#include "ports/CaptureFiles.h"
#include "ports/Toasts.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QShortcut>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct EditorWindowTest : testing::Test {
    EditorWindowTest()
    {
        Preferences::registerDefaults(defaults);
        ports.toasts.offer(toasts);
        ports.files.offer(files);
        ports.delivery.offer(delivery);
    }

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

    void useShortcut(const QKeySequence& keys)
    {
        for (auto* const shortcut : window->findChildren<QShortcut*>())
            if (shortcut->key() == keys)
                Q_EMIT shortcut->activated();
        settle();
    }

    // Until nothing is under way any more.
    void settle()
    {
        do
            loop.advance(std::chrono::milliseconds(1));
        while (workers.runAll() > 0);
        loop.runPosted();
    }

    QString pictureFile(const QString& name, QSize size) const
    {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(folder / name);
        return folder / name;
    }

    QByteArray pictureBytes(QSize size) const
    {
        QFile file(pictureFile("bytes.png", size));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static ClipboardOffer offer(const QString& type, const QByteArray& bytes)
    {
        return {type, [bytes] { return bytes; }};
    }

    const std::vector<Annotation>& marks() const { return window->session().document().marks; }

    void drop(const QMimeData& data, QPointF at)
    {
        QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window->canvas(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window->canvas(), &event);
        settle();
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

    struct : Toasts {
        void present(ToastContent content, std::optional<quint32>, bool) override
        {
            messages << content.message;
            subtitles << content.subtitle.value_or(QString());
        }

        void update(ToastContent, bool) override {}

        void showSaved(const QString&, std::optional<quint32>) override {}

        void armCountdown(std::optional<double>) override {}

        void dismiss(bool) override {}

        bool setHiddenForCapture(bool) override { return false; }

        QStringList messages;
        QStringList subtitles;
    } toasts;

    struct : CaptureFiles {
        void file(QUuid, Reply<std::optional<QString>> reply) override { reply(path); }

        QString path;
    } files;

    struct : CaptureDelivery {
        std::shared_ptr<CaptureSave> save(CaptureResult, std::optional<QString>, std::shared_ptr<EncodedPng>) override
        {
            return {};
        }

        void copy(CaptureResult, std::shared_ptr<EncodedPng>) override {}

        void copyAsFile(const QString& path, std::shared_ptr<EncodedPng> encoded) override
        {
            file = path;
            png = std::move(encoded);
        }

        void copyText(const QString&) override {}

        void reveal(const QString&) override {}

        void openLink(const QUrl&) override {}

        QString file;
        std::shared_ptr<EncodedPng> png;
    } delivery;

    Ports ports;
    EditorServices services{
        loop, workers, preferences, desktop.filePanel(), desktop.clipboard(), ports, folder / "temporary"};
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

// In their own size where that is not more than half of the capture, in the middle of what is seen.
TEST_F(EditorWindowTest, APictureOnTheClipboardBecomesASticker)
{
    const std::pair<QSize, Rect> cases[] = {
        {{100, 60}, {350, 270, 100, 60}},
        {{4000, 1000}, {200, 250, 400, 100}},
    };
    for (const auto& [size, place] : cases) {
        open();
        desktop.clipboard().put({offer("text/plain", "no"), offer("image/png", pictureBytes(size))});
        useShortcut(QKeySequence::Paste);
        ASSERT_EQ(marks().size(), 1);
        const Rect laid = marks().front().boundingRect();
        EXPECT_NEAR(laid.x, place.x, 2);
        EXPECT_NEAR(laid.y, place.y, 2);
        EXPECT_DOUBLE_EQ(laid.width, place.width);
        EXPECT_DOUBLE_EQ(laid.height, place.height);
        EXPECT_LE(marks().front().image->width(), 800) << "more is never seen";
        EXPECT_TRUE(window->session().isSelected(marks().front().id));
        window->session().undo();
        EXPECT_TRUE(marks().empty()) << "it is one step";
    }
}

TEST_F(EditorWindowTest, MarksArePastedWhileTheyAreTheLastThatWasCopied)
{
    EditorDocument document;
    document.marks.push_back({.kind = Annotation::Kind::rectangle, .points = {{10, 10}, {60, 60}}});
    open(document);
    window->session().selectAll();
    useShortcut(QKeySequence::Copy);
    useShortcut(QKeySequence::Paste);
    ASSERT_EQ(marks().size(), 2);
    EXPECT_EQ(marks().back().kind, Annotation::Kind::rectangle);
    desktop.clipboard().put({offer("image/png", pictureBytes({10, 10}))});
    useShortcut(QKeySequence::Paste);
    EXPECT_EQ(marks().back().kind, Annotation::Kind::image);
}

TEST_F(EditorWindowTest, NobodyWaitsForAClipboardThatRefusesOrHangs)
{
    open();
    desktop.clipboard().put({offer("image/png", pictureBytes({10, 10}))});
    desktop.clipboard().refuses = true;
    useShortcut(QKeySequence::Paste);
    EXPECT_EQ(toasts.messages, QStringList{"Nothing was pasted"});
    desktop.clipboard().refuses = false;
    desktop.clipboard().answers.manner = Testing::FakeAnswers::Manner::never;
    useShortcut(QKeySequence::Paste);
    desktop.clipboard().answers.manner = Testing::FakeAnswers::Manner::late;
    useShortcut(QKeySequence::Paste);
    EXPECT_TRUE(marks().empty());
    desktop.clipboard().answers.catchUp();
    settle();
    EXPECT_EQ(marks().size(), 1);
    useShortcut(QKeySequence::Paste);
    window.reset();
    desktop.clipboard().answers.catchUp();
    settle();
}

// Into the label in which it was asked for, or nowhere.
TEST_F(EditorWindowTest, ATextIsPastedIntoTheLabelThatIsWritten)
{
    EditorDocument document;
    for (const double x : {100.0, 300.0})
        document.marks.push_back({.kind = Annotation::Kind::text, .points = {{x, 300}}, .text = "a"});
    open(document);
    desktop.clipboard().putText("bc");
    window->canvas().write(marks()[0].id);
    press(Qt::Key_V, Qt::ControlModifier);
    settle();
    EXPECT_EQ(marks()[0].text, "abc");
    press(Qt::Key_V, Qt::ControlModifier);
    window->canvas().write(marks()[1].id);
    settle();
    EXPECT_EQ(marks()[0].text + marks()[1].text, "abca");

    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    settle();
    EXPECT_EQ(marks()[1].text, "aa") << "what is cut can be pasted again";
}

TEST_F(EditorWindowTest, FilesAreDroppedWhereThePointerIsAndWhatIsNoPictureIsSaid)
{
    open();
    QFile text(folder / "letter.txt");
    ASSERT_TRUE(text.open(QIODevice::WriteOnly) && text.write("no picture"));
    text.close();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(pictureFile("a.png", {40, 20})), QUrl::fromLocalFile(text.fileName()),
                  QUrl::fromLocalFile(pictureFile("b.png", {40, 20}))});
    const QPointF at(QRectF(window->canvas().rect()).center() + QPointF(50, 30));
    drop(data, at);
    ASSERT_EQ(marks().size(), 2);
    const Point middle = marks().front().boundingRect().centre();
    EXPECT_NEAR(middle.x, window->canvas().imagePoint(at).x, 1e-6);
    EXPECT_NEAR(middle.y, window->canvas().imagePoint(at).y, 1e-6);
    EXPECT_EQ(window->session().selection().size(), 2);
    EXPECT_EQ(toasts.subtitles, QStringList{"letter.txt is no picture that can be read."});
    window->session().undo();
    EXPECT_TRUE(marks().empty());

    QMimeData bytes;
    bytes.setData("image/png", pictureBytes({30, 30}));
    drop(bytes, {1, 1});
    ASSERT_EQ(marks().size(), 1);
    const Point corner = marks().front().boundingRect().centre();
    EXPECT_NEAR(corner.x, 0, 1e-6) << "it is on the capture";
    EXPECT_NEAR(corner.y, 600, 1e-6);
}

// The file that looks as the picture does now, else a short-lived one.
TEST_F(EditorWindowTest, ThePictureIsCopiedAsAFile)
{
    files.path = pictureFile("kept.png", {800, 600});
    open();
    useShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_C);
    EXPECT_EQ(delivery.file, files.path);
    EXPECT_EQ(ImageCodec::decode(delivery.png->bytes().value())->size(), QSize(800, 600));

    EditorDocument marked;
    marked.marks.push_back({.kind = Annotation::Kind::blackout, .points = {{0, 0}, {800, 600}}});
    window->session().change(marked);
    useShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_C);
    EXPECT_TRUE(QFileInfo(delivery.file).fileName().startsWith("Screenshot ")) << qUtf8Printable(delivery.file);
    EXPECT_EQ(QImage(delivery.file).pixelColor(400, 300), Qt::black);
    const QString written = delivery.file;
    useShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_C);
    EXPECT_EQ(delivery.file, written) << "once is enough";

    EditorDocument cropped;
    cropped.composition.crop = Rect{0, 0, 40, 30};
    open(cropped);
    useShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_C);
    EXPECT_EQ(QImage(delivery.file).size(), QSize(40, 30)) << "the history has all of it";
    QFile::remove(files.path);
    open();
    useShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_C);
    EXPECT_EQ(QImage(delivery.file).size(), QSize(800, 600));
    EXPECT_EQ(toasts.messages, QStringList(5, "Copied as a file"));
}

} // namespace Kovrel
