#include "saving/SaveService.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/LogLines.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"

#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Kovrel {

using Testing::testPicture;
using Testing::Texture;

namespace {

const QDateTime date(QDate(2024, 3, 5), QTime(9, 7, 3));
const QString usualName = "Screenshot 2024-03-05 at 09.07.03";

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

int modeOf(const QString& path)
{
    struct stat status{};
    return ::stat(QFile::encodeName(path), &status) == 0 ? int(status.st_mode & 07777) : -1;
}

struct SaveServiceTest : testing::Test {
    Testing::TempFolder folder;
    ReservationJournal journal{folder / "journal"};
    SaveSettings settings{.folder = folder / "shots"};
    QImage image = testPicture({40, 30}, Texture::blocks);

    SaveService::Result save(std::optional<double> scale = {}, std::optional<QByteArray> png = {})
    {
        return SaveService::saveToDefaultLocationReturningPNG(
            settings, image, date, scale, [png] { return png; }, journal);
    }

    QStringList shots() const { return QDir(settings.folder).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
};

} // namespace

TEST_F(SaveServiceTest, TheFormatOfANewFile)
{
    struct Case {
        bool isAuto;
        ImageFormat chosen;
        QSize size;
        bool isTransparent;
        ImageFormat expected;
    };

    for (const Case& one : {Case{true, ImageFormat::tiff, {1000, 999}, false, ImageFormat::png},
                            Case{true, ImageFormat::png, {1000, 1000}, false, ImageFormat::jpeg},
                            Case{true, ImageFormat::png, {60000, 60000}, false, ImageFormat::jpeg},
                            Case{true, ImageFormat::jpeg, {4000, 4000}, true, ImageFormat::png},
                            Case{false, ImageFormat::heic, {10, 10}, true, ImageFormat::heic}}) {
        settings.formatAuto = one.isAuto;
        settings.format = one.chosen;
        EXPECT_EQ(SaveService::resolvedFormat(settings, one.size, one.isTransparent), one.expected)
            << one.size.width() << "x" << one.size.height();
    }
}

TEST_F(SaveServiceTest, CapturesOfOneSecondGetNumbers)
{
    for (const QString counter : {"", " 2", " 3"}) {
        const auto saved = save();
        ASSERT_TRUE(saved);
        EXPECT_EQ(saved->path, settings.folder + "/" + usualName + counter + ".png");
        EXPECT_TRUE(Testing::samePicture(ImageCodec::decodeFile(saved->path).value(), image));
    }
    EXPECT_EQ(shots().size(), 3) << "nothing else lies about";
    EXPECT_EQ(modeOf(settings.folder + "/" + usualName + ".png") & 0600, 0600);
}

TEST_F(SaveServiceTest, PreparedBytesAreWrittenAndHandedBackOnlyAsTheyAre)
{
    const QByteArray png = ImageCodec::encode(image, ImageFormat::png, 1).value();
    const auto unchanged = save({}, png);
    EXPECT_EQ(contentOf(unchanged->path), png);
    EXPECT_EQ(unchanged->fullResPNG, png);

    settings.downscale = true;
    const auto reduced = save(2.0, png);
    EXPECT_EQ(ImageCodec::decodeFile(reduced->path)->size(), QSize(20, 15));
    EXPECT_FALSE(reduced->fullResPNG);
    EXPECT_EQ(contentOf(save(1.0, png)->path), png) << "nothing to reduce";
    const auto prepared = [png] { return std::optional(png + "prepared"); };
    EXPECT_EQ(contentOf(SaveService::saveTo(image, folder / "named.png", 1, prepared)->path), *prepared());
    EXPECT_TRUE(ImageCodec::decodeFile(SaveService::saveTo(image, folder / "named.jpeg", 1, prepared)->path));

    settings.mainScreenScale = 1.25;
    EXPECT_EQ(ImageCodec::decodeFile(save()->path)->size(), QSize(32, 24)) << "the main screen's scale";
    settings.format = ImageFormat::jpeg;
    settings.downscale = false;
    const auto jpeg = save({}, png);
    EXPECT_TRUE(jpeg->path.endsWith(".jpeg"));
    EXPECT_FALSE(jpeg->fullResPNG);
}

TEST_F(SaveServiceTest, LongNamesAreShortenedInWholeCharacters)
{
    for (const QString& unit :
         {QString("x"), QString("é"), QString("😀"), QString("e\u0301"), QString("👨‍👩‍👧")}) {
        settings.fileNameTemplate = unit.repeated(300);
        for (int round = 0; round < 2; ++round) {
            const auto saved = save();
            ASSERT_TRUE(saved) << qPrintable(unit);
            const QString base = QFileInfo(saved->path).completeBaseName();
            EXPECT_TRUE(saved->path.endsWith(round == 0 ? ".png" : " 2.png"));
            const QString letters = round == 0 ? base : base.chopped(2);
            EXPECT_EQ(letters.size() % unit.size(), 0) << qPrintable(unit) << " was cut apart";
            EXPECT_GT(QFile::encodeName(base).size(), 200);
        }
    }
}

TEST_F(SaveServiceTest, OnlyFreeNamesAreTaken)
{
    ASSERT_TRUE(QDir().mkpath(settings.folder));
    put(settings.folder + "/a.png", {});
    ASSERT_TRUE(QFile::link(folder / "nowhere", settings.folder + "/a 2.png"));
    ASSERT_TRUE(QDir().mkdir(settings.folder + "/a 3.png"));
    const auto place = SaveService::uniqueURL(settings.folder, "a.png", journal);
    EXPECT_EQ(place.path, settings.folder + "/a 4.png");
    EXPECT_TRUE(place.isReserved);
    EXPECT_TRUE(QFile::exists(place.path));
    EXPECT_EQ(SaveService::uniqueURL(settings.folder, "noextension", journal).path, settings.folder + "/noextension");
    EXPECT_EQ(SaveService::uniqueURL(settings.folder, "noextension", journal).path, settings.folder + "/noextension 2");
}

TEST_F(SaveServiceTest, WhenEveryNumberIsTakenNothingIsOverwritten)
{
    const Testing::LogLines log;
    ASSERT_TRUE(QDir().mkpath(settings.folder));
    settings.fileNameTemplate = "a";
    put(settings.folder + "/a.png", "old");
    for (int counter = 2; counter <= 9999; ++counter)
        ASSERT_EQ(::symlink("old", QFile::encodeName(settings.folder + QString("/a %1.png").arg(counter))), 0);
    const auto place = SaveService::uniqueURL(settings.folder, "a.png", journal);
    EXPECT_EQ(place.path, settings.folder + "/a 10000.png");
    EXPECT_FALSE(place.isReserved);
    EXPECT_TRUE(save());
    const QByteArray first = contentOf(place.path);
    EXPECT_FALSE(save());
    EXPECT_EQ(contentOf(place.path), first);
}

TEST_F(SaveServiceTest, ADiskThatIsFullLeavesNothingBehind)
{
    image = testPicture({300, 300}, Texture::noise);
    const auto existing = save();
    const QByteArray before = contentOf(existing->path);
    {
        const Testing::LogLines log;
        const Testing::FileSizeLimit limit(10'000);
        for (const auto& result : {save(), SaveService::overwriteFile(settings, image, existing->path),
                                   SaveService::saveTo(image, folder / "other.png", 1)}) {
            ASSERT_FALSE(result);
            EXPECT_TRUE(result.error().message.contains("File too large")) << qPrintable(result.error().message);
        }
    }
    EXPECT_EQ(shots(), QStringList{usualName + ".png"});
    EXPECT_EQ(contentOf(existing->path), before);
    EXPECT_TRUE(folder.files().isEmpty());
    EXPECT_TRUE(save()) << "and the next one works again";
}

TEST_F(SaveServiceTest, FoldersThatCannotBeUsedAreNamed)
{
    const Testing::LogLines log;
    put(folder / "file", "x");
    for (const QString& path : {folder / "file", folder / "file/below", QString("/proc/kovrel"), QString()}) {
        settings.folder = path;
        const auto result = save();
        ASSERT_FALSE(result) << qPrintable(path);
        EXPECT_TRUE(result.error().message.contains(path)) << qPrintable(result.error().message);
    }
    EXPECT_EQ(contentOf(folder / "file"), "x");
}

TEST_F(SaveServiceTest, FailuresAreLoggedWithTheirReason)
{
    const Testing::LogLines log;
    settings.folder = "/proc/kovrel";
    const auto saved = save();
    const auto resaved = SaveService::overwriteFile(settings, image, folder / "missing.png");
    const QString category = "com.kovrel.capture: ";
    EXPECT_EQ(log.lines(), (QStringList{category + "Kovrel save failed: " + saved.error().message,
                                        category + "Kovrel re-save failed: " + resaved.error().message}));
}

TEST_F(SaveServiceTest, PicturesThatCannotBeEncodedLeaveNoFile)
{
    const Testing::LogLines log;
    image = QImage();
    EXPECT_FALSE(save());
    EXPECT_TRUE(shots().isEmpty());
}

TEST_F(SaveServiceTest, ReSavesFollowTheNameOfTheFile)
{
    const Testing::LogLines log;
    const auto contentType = [](const QString& path) {
        const QByteArray bytes = contentOf(path);
        return bytes.startsWith("\x89PNG") ? "png" : bytes.startsWith("\xFF\xD8") ? "jpeg" : "other";
    };
    settings.format = ImageFormat::png;
    for (const auto& [name, expected] : std::vector<std::pair<QString, const char*>>{
             {"a.JPG", "jpeg"}, {"a.png", "png"}, {"a.xyz", "png"}, {"a", "png"}, {"a.tif", "other"}}) {
        put(folder / name, "old");
        ASSERT_TRUE(SaveService::overwriteFile(settings, image, folder / name)) << qPrintable(name);
        EXPECT_STREQ(contentType(folder / name), expected) << qPrintable(name);
    }
    EXPECT_FALSE(SaveService::overwriteFile(settings, image, folder / "missing.png"));
    EXPECT_FALSE(QFile::exists(folder / "missing.png"));
}

TEST_F(SaveServiceTest, ReSavesKeepLinksAndPermissions)
{
    put(folder / "real.png", "old");
    ASSERT_EQ(::chmod(QFile::encodeName(folder / "real.png"), 0640), 0);
    ASSERT_TRUE(QFile::link(folder / "real.png", folder / "link.png"));
    settings.downscale = true;
    const auto saved = SaveService::overwrite(settings, image, folder / "link.png", 2.0);
    ASSERT_TRUE(saved);
    EXPECT_FALSE(saved->fullResPNG);
    EXPECT_TRUE(QFileInfo(folder / "link.png").isSymLink());
    EXPECT_EQ(modeOf(folder / "real.png"), 0640);
    EXPECT_EQ(ImageCodec::decodeFile(folder / "real.png")->size(), QSize(20, 15));
    EXPECT_EQ(SaveService::overwriteFile(settings, image, folder / "real.png")->fullResPNG,
              contentOf(folder / "real.png"));
}

TEST_F(SaveServiceTest, AnExplicitTargetMustBeAFileWithAKnownExtension)
{
    const Testing::LogLines log;
    EXPECT_TRUE(SaveService::saveTo(image, folder / "a.jpeg", 0.8));
    EXPECT_EQ(modeOf(folder / "a.jpeg"), 0644);
    ASSERT_TRUE(QDir().mkdir(folder / "folder.png"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(folder / "pipe.png"), 0600), 0);
    for (const QString& path : {folder / "a.txt", folder / "a", folder / "folder.png", folder / "pipe.png",
                                folder / "missing/a.png", folder / "a.jpeg/a.png"}) {
        const auto result = SaveService::saveTo(image, path, 0.8);
        ASSERT_FALSE(result) << qPrintable(path);
        EXPECT_TRUE(result.error().message.contains(folder.path())) << qPrintable(result.error().message);
    }
}

} // namespace Kovrel
