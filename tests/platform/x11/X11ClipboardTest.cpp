#include "platform/ImageCodec.h"
#include "platform/x11/X11ClipboardReader.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestPictures.h"
#include "tests/support/VirtualDisplay.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <csignal>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

// What another program gets from the clipboard that a small program of ours filled.
class X11ClipboardTest : public testing::Test {
public:
    void copy(const QString& what)
    {
        m_owner.setProcessEnvironment(m_display.environment());
        m_owner.start(QCoreApplication::applicationDirPath() + "/clipboard_owner", {what});
        ASSERT_TRUE(m_owner.waitForReadyRead());
        ASSERT_EQ(m_owner.readLine(), "ready\n");
    }

    ~X11ClipboardTest() override { finish(); }

    QByteArray paste(const QString& type)
    {
        const auto xclip = startPaste(type);
        xclip->waitForFinished();
        return xclip->readAllStandardOutput();
    }

    std::unique_ptr<QProcess> startPaste(const QString& type)
    {
        auto xclip = std::make_unique<QProcess>();
        xclip->setProcessEnvironment(m_display.environment());
        xclip->start("xclip", {"-selection", "clipboard", "-t", type, "-o"});
        return xclip;
    }

    // The owner ends as soon as it may.
    void letGo() { m_owner.closeWriteChannel(); }

    void signalOwner(int number) { ::kill(pid_t(m_owner.processId()), number); }

    // Ends the owner; what it said of the bytes that it made.
    QByteArray finish()
    {
        letGo();
        m_owner.waitForFinished();
        return m_owner.readAllStandardError();
    }

protected:
    Testing::VirtualDisplay m_display;

private:
    QProcess m_owner;
};

} // namespace

TEST_F(X11ClipboardTest, TheListOfFormatsMakesNone)
{
    copy("picture");
    const QByteArrayList targets = paste("TARGETS").split('\n');
    EXPECT_TRUE(targets.contains("image/png"));
    EXPECT_TRUE(targets.contains("image/tiff"));
    EXPECT_TRUE(paste("image/jpeg").isEmpty());
    EXPECT_FALSE(finish().contains("made"));
}

TEST_F(X11ClipboardTest, TheFormatThatIsAskedForIsMade)
{
    copy("picture");
    const QImage picture = Testing::testPicture({900, 700}, Testing::Texture::noise);
    const QByteArray png = paste("image/png");
    EXPECT_TRUE(png.startsWith("\x89PNG"));
    const auto pasted = ImageCodec::decode(png);
    ASSERT_TRUE(pasted);
    EXPECT_TRUE(Testing::samePicture(*pasted, picture));
    EXPECT_FALSE(finish().contains("made image/tiff"));
}

TEST_F(X11ClipboardTest, TiffIsThereForThoseWhoWantIt)
{
    copy("picture");
    const auto pasted = ImageCodec::decode(paste("image/tiff"));
    ASSERT_TRUE(pasted);
    EXPECT_TRUE(Testing::samePicture(*pasted, Testing::testPicture({900, 700}, Testing::Texture::noise)));
    const QByteArray told = finish();
    EXPECT_TRUE(told.contains("made image/tiff") && !told.contains("made image/png")) << told.constData();
}

TEST_F(X11ClipboardTest, SeveralFetchEverythingAtTheSameTime)
{
    copy("picture");
    std::vector<std::unique_ptr<QProcess>> readers;
    for (const char* type : {"image/png", "image/tiff", "image/png", "TIMESTAMP"})
        readers.push_back(startPaste(type));
    for (const auto& reader : readers) {
        EXPECT_TRUE(reader->waitForFinished());
        EXPECT_FALSE(reader->readAllStandardOutput().isEmpty());
    }
}

TEST_F(X11ClipboardTest, AManagerMayTakeWhatIsThereAtTheEnd)
{
    copy("text");
    X11Connection manager(m_display.name());
    const xcb_window_t window = xcb_generate_id(manager.handle());
    xcb_create_window(manager.handle(), 0, window, manager.root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0, 0,
                      nullptr);
    xcb_set_selection_owner(manager.handle(), window, manager.atom("CLIPBOARD_MANAGER"), XCB_CURRENT_TIME);
    manager.roundTrip();
    letGo();
    const auto event = manager.nextEvent(10s);
    ASSERT_TRUE(event && (event->response_type & 0x7f) == XCB_SELECTION_REQUEST);
    const auto& request = reinterpret_cast<const xcb_selection_request_event_t&>(*event);
    EXPECT_EQ(request.target, manager.atom("SAVE_TARGETS"));
    EXPECT_EQ(paste("UTF8_STRING"), QByteArray("grün 😀")) << "it is still there";
    xcb_selection_notify_event_t taken{};
    taken.response_type = XCB_SELECTION_NOTIFY;
    taken.requestor = request.requestor;
    taken.selection = request.selection;
    xcb_send_event(manager.handle(), false, request.requestor, 0, reinterpret_cast<const char*>(&taken));
    manager.roundTrip();
    finish();
    EXPECT_TRUE(paste("UTF8_STRING").isEmpty()) << "and then it is the manager's";
}

TEST_F(X11ClipboardTest, WhatIsCopiedElsewhereReplacesIt)
{
    copy("text");
    QProcess other;
    other.setProcessEnvironment(m_display.environment());
    other.start("xclip", {"-selection", "clipboard"});
    other.write("another");
    other.closeWriteChannel();
    other.waitForFinished();
    EXPECT_EQ(paste("UTF8_STRING"), "another");
}

// In pieces from a program of ours and from another one, the first type that there is.
TEST_F(X11ClipboardTest, WhatOthersHaveIsRead)
{
    copy("picture");
    const auto read = [this](const QStringList& types, qsizetype most = Clipboard::mostBytes) {
        return X11ClipboardReader(m_display.name(), {10s, most}).read(types);
    };
    const auto content = read({"image/jpeg", "image/png", "image/tiff"});
    ASSERT_TRUE(content);
    EXPECT_EQ(content->mimeType, "image/png");
    const auto picture = ImageCodec::decode(content->bytes);
    ASSERT_TRUE(picture);
    EXPECT_TRUE(Testing::samePicture(*picture, Testing::testPicture({900, 700}, Testing::Texture::noise)));
    EXPECT_FALSE(read({"image/jpeg"})) << "it is not there";
    EXPECT_FALSE(read({"image/png"}, 300'000)) << "it is too much";

    QProcess other;
    other.setProcessEnvironment(m_display.environment());
    other.start("xclip", {"-selection", "clipboard", "-t", "text/uri-list"});
    const QByteArray many(2'000'000, 'x');
    other.write(many);
    other.closeWriteChannel();
    other.waitForFinished();
    std::optional<ClipboardContent> files; // it is not there at once
    for (int tries = 0; !files && tries < 1000; ++tries)
        files = read({"text/uri-list", "text/plain"});
    ASSERT_TRUE(files);
    EXPECT_EQ(files->mimeType, "text/uri-list");
    EXPECT_TRUE(files->bytes == many) << files->bytes.size();
    EXPECT_FALSE(read({"text/uri-list"}, 1000)) << "it is too much";
}

// Before it has said what there is, while it makes what was asked for, or where there is nobody at all.
TEST_F(X11ClipboardTest, AProgramThatHangsIsGivenUp)
{
    const auto read = [this](std::chrono::milliseconds patience) {
        return X11ClipboardReader(m_display.name(), {patience, Clipboard::mostBytes}).read({"image/png"});
    };
    EXPECT_FALSE(read(24h)) << "nobody has anything";
    copy("nothing, ever");
    EXPECT_FALSE(read(50ms));
    signalOwner(SIGSTOP);
    EXPECT_FALSE(read(50ms));
    signalOwner(SIGKILL);
}

TEST_F(X11ClipboardTest, TextComesOutAsItWentIn)
{
    copy("text");
    EXPECT_EQ(paste("UTF8_STRING"), QByteArray("grün 😀"));
}

} // namespace Kovrel
