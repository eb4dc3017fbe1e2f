#include "saving/ClipboardService.h"

#include "platform/ImageCodec.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"
#include "tests/support/desktop/FakeClipboard.h"

#include <QFile>
#include <QUrl>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct ClipboardServiceTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::FakeClipboard clipboard{loop};
    std::optional<ClipboardService> service{std::in_place, loop, workers, clipboard};
    Testing::TempFolder folder;
    QImage image = Testing::testPicture({20, 10}, Testing::Texture::noise);
    QByteArray png = ImageCodec::encode(image, ImageFormat::png, 1).value();
    std::optional<bool> copied;

    void finish()
    {
        workers.runAll();
        loop.runPosted();
    }

    QString fileNamed(const QString& name, const QByteArray& bytes = "content")
    {
        QFile file(folder / name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    void copyFile(const QString& path, int generation, bool force)
    {
        copied.reset();
        service->copyFile(path, generation, force, [this](bool done) { copied = done; });
    }
};

} // namespace

TEST_F(ClipboardServiceTest, PicturesAreOfferedAsPngAndTiff)
{
    service->copy(image);
    EXPECT_EQ(service->copyGeneration(), 1);
    EXPECT_EQ(clipboard.types(), (QStringList{"image/png", "image/tiff"}));
    for (const QString& type : clipboard.types())
        EXPECT_TRUE(Testing::samePicture(ImageCodec::decode(clipboard.bytes(type)).value(), image));
    EXPECT_EQ(clipboard.bytes("image/png").constData(), clipboard.bytes("image/png").constData()) << "made once";

    const auto shared = std::make_shared<EncodedPng>(image);
    const auto bytes = shared->bytes();
    service->copy(image, shared);
    EXPECT_EQ(clipboard.bytes("image/png").constData(), bytes->constData()) << "what others had encoded is used";
    EXPECT_EQ(service->copyGeneration(), 2);
}

TEST_F(ClipboardServiceTest, OnlyPngAndJpegFilesAreCopied)
{
    const std::vector<std::pair<QString, std::optional<QString>>> cases{
        {"a.png", "image/png"},   {"a.PNG", "image/png"},   {"a.jpg", "image/jpeg"}, {"a.Jpeg", "image/jpeg"},
        {"a.tiff", std::nullopt}, {"a.heic", std::nullopt}, {"png", std::nullopt},   {"a.png.txt", std::nullopt}};
    for (const auto& [name, type] : cases) {
        EXPECT_EQ(ClipboardService::pasteboardType(name), type) << qPrintable(name);
        copyFile(fileNamed(name), 0, true);
        finish();
        EXPECT_EQ(copied, type.has_value()) << qPrintable(name);
        if (type) {
            EXPECT_EQ(clipboard.types(), (QStringList{*type, "text/uri-list"}));
            EXPECT_EQ(clipboard.bytes(*type), "content");
        }
    }
    EXPECT_EQ(service->copyGeneration(), 4);
}

TEST_F(ClipboardServiceTest, FilesThatCannotBeReadAreNotCopied)
{
    ASSERT_TRUE(QDir().mkdir(folder / "folder.png"));
    for (const QString& name : {"missing.png", "folder.png"}) {
        copyFile(folder / name, 0, true);
        finish();
        EXPECT_EQ(copied, false) << qPrintable(name);
    }
    EXPECT_EQ(clipboard.puts, 0);
}

TEST_F(ClipboardServiceTest, TheFilesAddressIsEncoded)
{
    const QString path = fileNamed("ä b#%.png");
    copyFile(path, 0, true);
    finish();
    const QByteArray list = clipboard.bytes("text/uri-list");
    EXPECT_TRUE(list.endsWith("\r\n"));
    EXPECT_EQ(QUrl::fromEncoded(list.trimmed()).toLocalFile(), path);
    EXPECT_FALSE(list.contains(' '));
}

TEST_F(ClipboardServiceTest, ASlowCopyNeverReplacesANewerOne)
{
    const QString path = fileNamed("slow.png");
    const auto slowWays = {
        std::function<void()>([&] { copyFile(path, service->copyGeneration(), false); }),
        std::function<void()>([&] { copyFile(path, 0, true); }), std::function<void()>([&] {
            service->copyInBackground(image, [this] { return std::optional(png); }, service->copyGeneration());
        }),
        std::function<void()>([&] { service->copyInBackground(image, {}, service->copyGeneration()); })};
    const QImage newer(9, 7, QImage::Format_RGB32);
    for (const auto& begin : slowWays) {
        begin();
        service->copy(newer);
        const int puts = clipboard.puts;
        finish();
        EXPECT_EQ(clipboard.puts, puts);
        EXPECT_EQ(ImageCodec::decode(clipboard.bytes("image/png"))->size(), newer.size());

        begin();
        finish();
        EXPECT_EQ(clipboard.puts, puts + 1) << "nothing came in between";
        begin();
        service->copyText("newer");
        finish();
        EXPECT_EQ(clipboard.text, "newer");
    }
    EXPECT_EQ(copied, true) << "the file was read all the same";
}

TEST_F(ClipboardServiceTest, BackgroundCopiesOfferTheOneTypeThatWasMade)
{
    service->copyInBackground(image, [this] { return std::optional(png); }, 0);
    finish();
    EXPECT_EQ(clipboard.types(), QStringList{"image/png"});
    EXPECT_EQ(clipboard.bytes("image/png"), png);

    service->copyInBackground(image, [] { return std::optional<QByteArray>(); }, 0);
    finish();
    EXPECT_EQ(clipboard.types(), QStringList{"image/tiff"});

    service->copyInBackground(QImage(), {}, 0);
    finish();
    EXPECT_EQ(clipboard.types(), (QStringList{"image/png", "image/tiff"})) << "no bytes: the picture as it is";
    EXPECT_EQ(service->copyGeneration(), 0);
}

TEST_F(ClipboardServiceTest, NothingIsPutOnceTheServiceHasGone)
{
    service->copyInBackground(image, {}, 0);
    copyFile(fileNamed("a.png"), 0, true);
    service.reset();
    finish();
    EXPECT_EQ(clipboard.puts, 0);
}

// What asks for it decides what it gets; a copy that began before does not replace it.
TEST_F(ClipboardServiceTest, AFileIsCopiedWithThePictureInIt)
{
    const int before = service->copyGeneration();
    service->copyAsFile("/a b.jpg", std::make_shared<EncodedPng>(image));
    EXPECT_EQ(clipboard.types(), (QStringList{"text/uri-list", "x-special/gnome-copied-files", "image/png"}));
    EXPECT_EQ(clipboard.bytes("text/uri-list"), "file:///a%20b.jpg\r\n");
    EXPECT_EQ(clipboard.bytes("x-special/gnome-copied-files"), "copy\nfile:///a%20b.jpg");
    EXPECT_EQ(clipboard.bytes("image/png"), png);
    service->copyInBackground(image, {}, before);
    finish();
    EXPECT_EQ(clipboard.puts, 1);
}

} // namespace Kovrel
