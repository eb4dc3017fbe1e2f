#include "tests/e2e/UserSession.h"
#include "tests/support/TestPictures.h"

#include <QColorSpace>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace Kovrel {

namespace {

using Testing::UserSession;

const char* const marks = R"([
  {"kind":"text","points":[[60,60]],"colorHex":"#0A84FF","lineWidth":4,"fontSize":24,"textStyle":"bubble",
   "text":"Grüße שלום 🎉"},
  {"kind":"hologram","points":[],"colorHex":"","lineWidth":1},
  {"kind":"blackout","points":[[10,10],[50,40]],"colorHex":"#000000","lineWidth":1},
  {"kind":"arrow","points":[[200,40],[280,100]],"colorHex":"#FF3B30","lineWidth":4}])";

void put(UserSession& session, const QString& name, const QByteArray& bytes)
{
    QFile file(session.path("home/" + name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

QByteArray get(UserSession& session, const QString& name)
{
    QFile file(session.path("home/" + name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A picture with a profile, a density and a text that nobody is to learn.
void putCapture(UserSession& session)
{
    QImage capture = Testing::testPicture({640, 320}, Testing::Texture::blocks).convertToFormat(QImage::Format_RGB32);
    capture.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    capture.setDotsPerMeterX(5669);
    capture.setDotsPerMeterY(5669);
    capture.setText("Title", "A secret window");
    ASSERT_TRUE(capture.save(session.path("home/shot.png")));
}

} // namespace

TEST(AnnotateCommand, DrawsTheSameWithAndWithoutADisplay)
{
    const Testing::VirtualDisplay display({1280, 800});
    UserSession session(&display);
    session.prepare();
    putCapture(session);
    put(session, "a.json", marks);
    put(session, "b.json",
        R"({"fill":{"kind":"color","value":"#20C0A0"},"padding":0.1,"aspect":{"width":1,"height":1}})");
    const QStringList line{"annotate",   "shot.png", "--annotations", "a.json", "--lenient",
                           "--backdrop", "b.json",   "--scale",       "2"};

    const auto alone = session.kovrel(line + QStringList{"--output", "alone.png"});
    EXPECT_EQ(alone.exitCode, 0) << alone.error.constData();
    EXPECT_EQ(session.instancePid(), 0);
    session.startKovrel({"--background"});
    ASSERT_TRUE(UserSession::eventually([&] { return session.instancePid() != 0; }));
    const auto running = session.kovrel(line + QStringList{"--output", "running.png"});
    EXPECT_EQ(running.exitCode, 0) << running.error.constData();

    EXPECT_FALSE(get(session, "alone.png").isEmpty());
    EXPECT_EQ(get(session, "alone.png"), get(session, "running.png"));
    const QImage picture(session.path("home/alone.png"));
    EXPECT_EQ(picture.width(), picture.height());
    EXPECT_EQ(picture.colorSpace(), QColorSpace(QColorSpace::DisplayP3));
    EXPECT_EQ(picture.dotsPerMeterX(), 5669);
    EXPECT_FALSE(get(session, "alone.png").contains("secret"));
}

TEST(AnnotateCommand, WritesEachFormatAndCoversWhatIsBlackedOut)
{
    UserSession session(nullptr);
    putCapture(session);
    put(session, "a.json", marks);
    for (const char* name : {"o.png", "o.jpeg", "o.heic", "o.tiff"}) {
        const auto result = session.kovrel(
            {"annotate", "shot.png", "--annotations=a.json", "--lenient", "--scale=2", "--output", name});
        EXPECT_EQ(result.exitCode, 0) << result.error.constData();
        EXPECT_EQ(result.output, "");
        EXPECT_FALSE(get(session, name).isEmpty());
        EXPECT_FALSE(get(session, name).contains("secret")) << name;
    }
    const QImage picture(session.path("home/o.png"));
    ASSERT_EQ(picture.size(), QSize(640, 320));
    for (const QPoint pixel : {QPoint(20, 299), QPoint(99, 240), QPoint(60, 270)})
        EXPECT_EQ(picture.pixelColor(pixel), QColor(Qt::black)) << pixel.x();
}

TEST(AnnotateCommand, SetsAWindowOnAPictureOfTheUsersOwn)
{
    UserSession session(nullptr);
    putCapture(session);
    QImage own(50, 50, QImage::Format_RGB32);
    own.fill(QColor(10, 200, 30));
    ASSERT_TRUE(own.save(session.path("home/own.png")));
    const QByteArray path = session.path("home/own.png").toUtf8();
    put(session, "b.json", R"({"fill":{"kind":"picture","value":")" + path + R"("},"shadow":{"layers":[]}})");
    const auto result =
        session.kovrel({"annotate", "shot.png", "--backdrop=b.json", "--subject=40,20,560,280,16", "--output=o.png"});
    ASSERT_EQ(result.exitCode, 0) << result.error.constData();
    const QImage picture(session.path("home/o.png"));
    const QPoint window((picture.width() - 640) / 2 + 40, (picture.height() - 320) / 2 + 20);
    EXPECT_EQ(picture.pixelColor(5, 5).name(), "#0ac81e");
    EXPECT_EQ(picture.pixelColor(window + QPoint(1, 1)).name(), "#0ac81e"); // its round corner
    EXPECT_EQ(picture.pixelColor(window - QPoint(1, -140)).name(), "#0ac81e");
    EXPECT_EQ(picture.pixelColor(window + QPoint(280, 140)).rgb(),
              QImage(session.path("home/shot.png")).pixelColor(320, 160).rgb());
    put(session, "b.json", R"({"fill":{"kind":"picture","value":"/missing.png"}})");
    EXPECT_EQ(session.kovrel({"annotate", "shot.png", "--backdrop=b.json", "--output=p.png"}).exitCode, 4);
}

TEST(AnnotateCommand, SaysWhatIsWrongAndWritesNothing)
{
    UserSession session(nullptr);
    putCapture(session);
    put(session, "a.json", marks);
    put(session, "object.json", "{}");
    put(session, "array.json", "[]");
    put(session, "cut.json", R"({"fill":{"kind":)");
    put(session, "damaged.json", R"([{"kind":"blackout","points":[[10,10],[50,40]],"lineWidth":1}])");
    ASSERT_EQ(::mkfifo(QFile::encodeName(session.path("home/pipe")), 0600), 0);

    const struct {
        QStringList arguments;
        int exitCode;
    } cases[] = {
        {{"missing.png"}, 4},
        {{"a.json"}, 4},
        {{"."}, 4},
        {{"shot.png", "--annotations", "missing.json"}, 4},
        {{"shot.png", "--annotations", "object.json"}, 4},
        {{"shot.png", "--annotations", "damaged.json"}, 4},
        {{"shot.png", "--annotations", "pipe"}, 4},
        {{"shot.png", "--annotations", "shot.png"}, 4},
        {{"shot.png", "--backdrop", "array.json"}, 4},
        {{"shot.png", "--backdrop", "cut.json"}, 4},
        {{"shot.png", "--backdrop", "."}, 4},
        {{"shot.png", "--scale", "none"}, 2},
    };

    for (const auto& [arguments, exitCode] : cases) {
        const auto result = session.kovrel(QStringList{"annotate", "--output=o.png"} + arguments);
        EXPECT_EQ(result.exitCode, exitCode) << qPrintable(arguments.join(' '));
        EXPECT_TRUE(result.error.startsWith("kovrel: ")) << result.error.constData();
        EXPECT_FALSE(QFile::exists(session.path("home/o.png"))) << qPrintable(arguments.join(' '));
    }
    const auto folder = session.kovrel({"annotate", "shot.png", "--output=missing/o.png"});
    EXPECT_EQ(folder.exitCode, 4) << folder.error.constData();
}

} // namespace Kovrel
