#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestKeyboard.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QUrl>

#include <gtest/gtest.h>

#include <csignal>
#include <functional>

namespace Kovrel {

namespace {

using Testing::TestKeyboard;
using Testing::UserSession;

constexpr QColor paper(120, 200, 140);

// Places of letters on the keyboard.
constexpr xcb_keycode_t keyA = 38;
constexpr xcb_keycode_t keyDelete = 119;
constexpr xcb_keycode_t keyF = 41;
constexpr xcb_keycode_t keyK = 45;
constexpr xcb_keycode_t keyS = 39;
constexpr xcb_keycode_t keyT = 28;
constexpr xcb_keycode_t keyV = 55;
constexpr xcb_keycode_t keyW = 25;
constexpr xcb_keycode_t keyZ = 52;

struct EditorTest : testing::Test {
    EditorTest()
    {
        display.run("openbox", {"--sm-disable"}, "WM_S0");
        screen.emplace(display.name());
        keyboard.emplace(display.name());
        session.emplace(&display);
        screen->movePointer({5, 5});
    }

    bool isPaper(QPoint at) const { return screen->pixelAt(at) == (paper.rgb() & RGB_MASK); }

    // Where the canvas shows the picture, which is all paper: by its middle row and column.
    QRect shownPicture() const
    {
        constexpr QSize all(1280, 800);
        QPoint inside(-1, -1);
        for (int y = 100; y < all.height() && inside.x() < 0; y += 40)
            for (int x = 80; x < all.width() && inside.x() < 0; x += 40)
                if (isPaper({x, y}))
                    inside = {x, y};
        if (inside.x() < 0)
            return {};
        const auto walk = [&](QPoint step) {
            QPoint at = inside;
            while (isPaper(at + step))
                at += step;
            return at;
        };
        return {QPoint(walk({-1, 0}).x(), walk({0, -1}).y()), QPoint(walk({1, 0}).x(), walk({0, 1}).y())};
    }

    // The window manager gives it to a window some time after it is seen.
    bool hasKeyboard()
    {
        const auto owner = session->run("xdotool", {"getwindowfocus", "getwindowpid"});
        return owner.output.trimmed().toLongLong() == session->instancePid();
    }

    // In an editor that hears its keys.
    QRect waitForPicture(QSize size)
    {
        QRect found;
        EXPECT_TRUE(UserSession::eventually([&] {
            found = shownPicture();
            return found.size() == size;
        })) << found.width()
            << " x " << found.height();
        EXPECT_TRUE(UserSession::eventually([this] { return hasKeyboard(); }));
        return found;
    }

    // A window manager that looks at each press keeps what the pointer does from the window until it has; keys don't
    // wait.
    void drag(QPoint from, QPoint to)
    {
        screen->drag(from, to);
        EXPECT_TRUE(UserSession::eventually([this] { return screen->holdPointer(); }));
    }

    QString picture(QSize size)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(paper);
        const QString path = session->path("paper.png");
        image.save(path);
        return path;
    }

    // Paper with stripes in its middle, on which each mark is seen.
    QImage stripes() const
    {
        QImage image({500, 380}, QImage::Format_RGB32);
        image.fill(paper);
        for (int y = 100; y < 300; ++y)
            for (int x = 100; x < 400; ++x)
                if ((x + y) / 5 % 2)
                    image.setPixelColor(x, y, x / 7 % 2 ? Qt::darkBlue : Qt::white);
        return image;
    }

    // The file once what its editor shows is saved and that is true of it; null where that never comes.
    QImage saved(const QString& path, const std::function<bool(const QImage&)>& isMeant)
    {
        type({TestKeyboard::control, keyS});
        QImage image;
        const auto isThere = [&] { return image.load(path) && isMeant(image); };
        return UserSession::eventually(isThere) ? image.convertToFormat(QImage::Format_RGB32) : QImage();
    }

    // Captures a part of the screen into the editor, draws on it and waits until that is noted in the history.
    QDir noteAMark()
    {
        session->prepare({"afterCaptureActions=8"});
        const auto window = screen->show({.pixels = {0, 0, 1280, 800}, .colour = paper, .managesItself = true});
        EXPECT_EQ(session->kovrel({"capture", "area", "--rect", "0,0,300,200", "--wait"}).exitCode, 0);
        screen->hide(window);
        const QPoint corner = waitForPicture({300, 200}).topLeft();
        type({keyF});
        drag(corner + QPoint(50, 40), corner + QPoint(150, 120));
        const QDir history(session->path("data/Kovrel/History"));
        EXPECT_TRUE(UserSession::eventually([&] {
            return history.entryList({"*_annotations.json"}).size() == 1 &&
                   history.entryList({"*_edited.png"}).size() == 1;
        }));
        return history;
    }

    void type(const std::vector<xcb_keycode_t>& keys) { keyboard->type(keys); }

    Testing::VirtualDisplay display;
    std::optional<Testing::PaintedScreen> screen;
    std::optional<TestKeyboard> keyboard;
    std::optional<UserSession> session;
};

} // namespace

TEST_F(EditorTest, MarksAreDrawnSavedAndTakenBack)
{
    session->prepare();
    const QString path = picture({400, 300});
    ASSERT_EQ(session->kovrel({"open", path}).exitCode, 0);
    const QRect shown = waitForPicture({400, 300});
    const QPoint corner = shown.topLeft();

    type({keyF});
    drag(corner + QPoint(50, 40), corner + QPoint(150, 120));
    ASSERT_TRUE(UserSession::eventually([&] { return !isPaper(corner + QPoint(100, 80)); }));
    type({keyK});
    drag(corner + QPoint(200, 150), corner + QPoint(300, 250));
    ASSERT_TRUE(UserSession::eventually([&] { return screen->pixelAt(corner + QPoint(250, 200)) == 0; }));
    type({TestKeyboard::control, keyS});
    const auto saved = [&] { return QImage(path).convertToFormat(QImage::Format_RGB32); };
    ASSERT_TRUE(UserSession::eventually([&] { return saved().pixelColor(250, 200) == Qt::black; }));
    const QImage marked = saved();
    EXPECT_EQ(marked.pixelColor(100, 80), QColor("#FF3B30"));
    EXPECT_EQ(marked.pixelColor(20, 20), paper);
    EXPECT_EQ(marked.pixelColor(100, 80).rgb() & RGB_MASK, screen->pixelAt(corner + QPoint(100, 80)));

    type({TestKeyboard::control, keyZ});
    type({TestKeyboard::control, keyZ});
    ASSERT_TRUE(UserSession::eventually([&] { return isPaper(corner + QPoint(100, 80)); }));
    type({TestKeyboard::control, keyS});
    EXPECT_TRUE(UserSession::eventually([&] { return saved().pixelColor(250, 200) == paper; }));
    QImage original({400, 300}, QImage::Format_RGB32);
    original.fill(paper);
    EXPECT_TRUE(Testing::sameColors(saved(), original));
}

// Each is chosen by its letter, is seen in the file that is saved and leaves nothing when it is taken back.
TEST_F(EditorTest, EachToolDoesItsWorkAndIsTakenBack)
{
    constexpr QPoint from(140, 140), to(300, 240), inside(220, 190), outside(350, 280);

    const struct {
        const char* tool;
        xcb_keycode_t letter;
        QPoint changed = inside;
        QPoint same = outside;
    } tools[] = {
        {"arrow", 38},
        {"line", 46},
        {"pen", 33},
        {"highlighter", 43},
        {"rectangle", 27, {220, 140}},
        {"filled rectangle", 41},
        {"ellipse", 32, {220, 140}},
        {"step", 57, to},
        {"text", keyT, {145, 140}},
        {"blur", 56},
        {"pixelate", 53},
        {"blackout", 45},
        {"spotlight", 39, outside, inside},
        {"measure", 58},
    };

    session->prepare({"historyEnabled=false"});
    const QString path = session->path("stripes.png");
    const QImage original = stripes();
    original.save(path);
    ASSERT_EQ(session->kovrel({"open", path}).exitCode, 0);
    const QPoint corner = waitForPicture(original.size()).topLeft();
    const auto isOriginal = [&](const QImage& image) {
        return image.size() == original.size() && Testing::sameColors(image, original);
    };
    const auto around = [&](const QImage& image, QPoint at) {
        return image.copy(QRect(at - QPoint(8, 8), QSize(17, 17))).convertToFormat(QImage::Format_RGB32);
    };
    for (const auto& [tool, letter, changed, same] : tools) {
        SCOPED_TRACE(tool);
        type({letter});
        drag(corner + from, corner + to);
        if (letter == keyT) {
            type({keyT});
            type({TestKeyboard::escape});
        }
        const QImage marked = saved(path, [&](const QImage& image) { return !isOriginal(image); });
        EXPECT_NE(around(marked, changed), around(original, changed));
        EXPECT_EQ(around(marked, same), around(original, same));
        type({TestKeyboard::control, keyZ});
        EXPECT_FALSE(saved(path, isOriginal).isNull());
    }

    type({keyF});
    drag(corner + from, corner + inside);
    type({55});
    drag(corner + QPoint(180, 165), corner + QPoint(300, 165));
    const QImage moved = saved(path, [&](const QImage& image) { return !isOriginal(image); });
    EXPECT_EQ(around(moved, from + QPoint(20, 20)), around(original, from + QPoint(20, 20))) << "it was moved away";
    EXPECT_NE(around(moved, {300, 165}), around(original, {300, 165}));

    type({54});
    drag(corner + from, corner + to);
    const QImage cropped = saved(path, [&](const QImage& image) { return image.size() != original.size(); });
    EXPECT_EQ(cropped.size(), QSize(160, 100));
    for (int step = 0; step < 3; ++step)
        type({TestKeyboard::control, keyZ});
    EXPECT_FALSE(saved(path, isOriginal).isNull());
}

// Neither the file nor the history may have it, and at the end nobody can be asked.
TEST_F(EditorTest, AQuitSavesWhatWasMadeOfAFile)
{
    session->prepare({"historyEnabled=false"});
    const QString path = picture({400, 300});
    ASSERT_EQ(session->kovrel({"open", path}).exitCode, 0);
    const QPoint corner = waitForPicture({400, 300}).topLeft();
    type({keyF});
    drag(corner + QPoint(50, 40), corner + QPoint(150, 120));
    ASSERT_TRUE(UserSession::eventually([&] { return !isPaper(corner + QPoint(100, 80)); }));
    session->kovrel({"quit"});
    ASSERT_TRUE(UserSession::eventually([&] { return session->instancePid() == 0; }));
    EXPECT_EQ(QImage(path).pixelColor(100, 80), paper) << "the file is as it was";
    QImage saved; // its name is there before it is
    ASSERT_TRUE(UserSession::eventually(
        [&] { return saved.load(session->saveFolder() + '/' + session->savedFiles().value(0)); }));
    EXPECT_EQ(session->savedFiles().size(), 1);
    EXPECT_EQ(saved.pixelColor(100, 80), QColor("#FF3B30"));
}

// What is made of a capture stays with it, also when the program is killed meanwhile, and can be changed again.
TEST_F(EditorTest, MarksStayWithTheCapture)
{
    const QDir history = noteAMark();
    ::kill(pid_t(session->instancePid()), SIGKILL);
    ASSERT_TRUE(UserSession::eventually([&] { return session->instancePid() == 0; }));

    const QString edited = history.filePath(history.entryList({"*_edited.png"}).first());
    EXPECT_EQ(QImage(edited).pixelColor(100, 80), QColor("#FF3B30"));
    const QString base = edited.chopped(int(qstrlen("_edited.png"))) + ".png";
    EXPECT_EQ(QImage(base).pixelColor(100, 80), paper) << "the capture itself is as it was";
}

// A file is opened with the marks that were made in it, also when the program was killed before they were saved.
TEST_F(EditorTest, MarksStayWithTheFile)
{
    session->prepare();
    const QString path = picture({400, 300});
    ASSERT_EQ(session->kovrel({"open", path}).exitCode, 0);
    QPoint corner = waitForPicture({400, 300}).topLeft();
    type({keyF});
    drag(corner + QPoint(50, 40), corner + QPoint(150, 120));
    const QDir history(session->path("data/Kovrel/History"));
    ASSERT_TRUE(UserSession::eventually([&] { return history.entryList({"*_thumb.jpg"}).size() == 1; }));
    ASSERT_TRUE(UserSession::eventually([&] { return history.entryList({"*_edited.png"}).size() == 1; }));
    ::kill(pid_t(session->instancePid()), SIGKILL);
    ASSERT_TRUE(UserSession::eventually([&] { return session->instancePid() == 0; }));

    EXPECT_EQ(QImage(path).pixelColor(100, 80), paper) << "the file is as it was";
    ASSERT_EQ(session->kovrel({"open", path}).exitCode, 0);
    corner = waitForPicture({400, 300}).topLeft();
    EXPECT_FALSE(isPaper(corner + QPoint(100, 80)));
    type({TestKeyboard::control, keyA});
    type({keyDelete});
    EXPECT_TRUE(UserSession::eventually([&] { return isPaper(corner + QPoint(100, 80)); }));
}

TEST_F(EditorTest, WhatWasUndoneAfterItWasNotedDoesNotStay)
{
    const QDir history = noteAMark();
    QFile marks(history.filePath(history.entryList({"*_annotations.json"}).first()));
    const auto noted = [&] {
        const QByteArray json = marks.open(QIODevice::ReadOnly) ? marks.readAll() : QByteArray();
        marks.close();
        return json;
    };
    EXPECT_TRUE(noted().contains("rectangle"));
    type({TestKeyboard::control, keyZ});
    type({TestKeyboard::control, keyW});
    EXPECT_TRUE(UserSession::eventually([&] { return noted() == "[]"; })) << noted().constData();
}

// What another program has copied is laid on the picture, and what is made of that goes back as a file.
TEST_F(EditorTest, PicturesComeFromTheClipboardAndGoBackAsFiles)
{
    const auto clipboard = [&](const QString& type) {
        return session->run("xclip", {"-selection", "clipboard", "-t", type, "-o"}).output;
    };
    session->prepare();
    QImage red({60, 40}, QImage::Format_RGB32);
    red.fill(Qt::red);
    red.save(session->path("red.png"));
    session->start("xclip", {"-quiet", "-selection", "clipboard", "-t", "image/png", "-i", session->path("red.png")});
    ASSERT_TRUE(UserSession::eventually([&] { return clipboard("TARGETS").contains("image/png"); }));
    ASSERT_EQ(session->kovrel({"open", picture({400, 300})}).exitCode, 0);
    const QPoint middle = waitForPicture({400, 300}).center();
    type({TestKeyboard::control, keyV});
    const auto isRed = [&] { return screen->pixelAt(middle + QPoint(8, 8)) == (QColor(Qt::red).rgb() & RGB_MASK); };
    ASSERT_TRUE(UserSession::eventually(isRed));

    type({TestKeyboard::control, TestKeyboard::shift, TestKeyboard::placeOfC});
    QString copied;
    ASSERT_TRUE(UserSession::eventually([&] {
        copied = QUrl(QString::fromUtf8(clipboard("text/uri-list")).trimmed()).toLocalFile();
        return !copied.isEmpty();
    }));
    const QImage made(copied);
    ASSERT_EQ(made.size(), QSize(400, 300)) << qUtf8Printable(copied);
    EXPECT_EQ(made.pixelColor(200, 150), Qt::red);
    EXPECT_EQ(made.pixelColor(165, 150), paper);
    EXPECT_TRUE(Testing::sameColors(QImage::fromData(clipboard("image/png")).convertToFormat(QImage::Format_RGB32),
                                    made.convertToFormat(QImage::Format_RGB32)));
}

// Where there is no printer, into a file.
TEST_F(EditorTest, TextInThePictureIsSelectedAndCopied)
{
    constexpr QSize size(700, 200);
    session->prepare();
    const QString path = session->path("page.png");
    session->run("convert", {"-size", "700x200", "xc:" + paper.name(), "-font", "DejaVu-Sans", "-pointsize", "20",
                             "-annotate", "+120+120", "Meadow invoice 2041", path});
    ASSERT_EQ(session->kovrel({"open", path}).exitCode, 0);
    const QPoint corner = waitForPicture(size).topLeft();
    type({TestKeyboard::control, keyT});
    ASSERT_TRUE(UserSession::eventually([&] { return !isPaper(corner + QPoint(20, 20)); })) << "once it is read";
    drag(corner + QPoint(123, 113), corner + QPoint(345, 113));
    type({TestKeyboard::control, TestKeyboard::placeOfC});
    QByteArray copied;
    EXPECT_TRUE(UserSession::eventually([&] {
        copied = session->run("xclip", {"-selection", "clipboard", "-o"}).output;
        return copied == "Meadow invoice 2041";
    })) << copied.constData();
}

TEST_F(EditorTest, ThePictureIsPrinted)
{
    session->prepare();
    ASSERT_EQ(session->kovrel({"open", picture({400, 300})}).exitCode, 0);
    waitForPicture({400, 300});
    type({TestKeyboard::control, TestKeyboard::placeOfP});
    ASSERT_TRUE(UserSession::eventually(
        [&] { return !session->run("xdotool", {"search", "--onlyvisible", "--name", "^Print$"}).output.isEmpty(); }));
    type({TestKeyboard::enter});
    EXPECT_TRUE(UserSession::eventually([&] {
        for (QDirIterator files(session->path("."), {"*.pdf"}, QDir::Files, QDirIterator::Subdirectories);
             files.hasNext();)
            if (QFile pdf(files.next()); pdf.open(QIODevice::ReadOnly) && pdf.readAll().trimmed().endsWith("%%EOF"))
                return true;
        return false;
    }));
}

} // namespace Kovrel
