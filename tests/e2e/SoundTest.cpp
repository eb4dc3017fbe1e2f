#include "tests/e2e/UserSession.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace Kovrel {

using Testing::UserSession;

namespace {

struct SoundTest : testing::Test {
    Testing::VirtualDisplay display{QSize(320, 200)};
    UserSession session{&display};
    QString socket = session.path("run/pulse.sock");
    QString recording = session.path("heard.raw");
    QProcess* instance = nullptr;
    QProcess* service = nullptr;

    void SetUp() override
    {
        session.setVariable("PULSE_SERVER", "unix:" + socket);
        session.setVariable("QT_FORCE_STDERR_LOGGING", "1");
    }

    // An audio service without a loudspeaker, and somebody who listens to it. It must not take back what it played, or
    // the beginning of a sound may be missing in what is heard.
    void startService()
    {
        service =
            &session.start("pulseaudio", {"--daemonize=no", "--exit-idle-time=-1", "-n", "--use-pid-file=no",
                                          "--load=module-native-protocol-unix socket=" + socket + " auth-anonymous=1",
                                          "--load=module-null-sink sink_name=rig rate=48000 channels=1 norewinds=1"});
        ASSERT_TRUE(UserSession::eventually([&] { return session.run("pactl", {"info"}).exitCode == 0; }));
        session.start("parecord", {"--device=rig.monitor", "--raw", "--format=s16le", "--rate=48000", "--channels=1",
                                   "--latency-msec=20", recording});
        ASSERT_TRUE(UserSession::eventually([&] { return QFile(recording).size() > 0; }));
    }

    // The program, whose log can be read.
    void startProgram()
    {
        instance = &session.startKovrel({"--background"});
        ASSERT_TRUE(UserSession::eventually([&] { return session.instancePid() != 0; }));
        session.prepare();
    }

    void capture(const char* sound, const char* volume)
    {
        session.kovrel({"preferences", "set", "captureSound", sound});
        session.kovrel({"preferences", "set", "soundVolume", volume});
        const auto result = session.kovrel({"capture", "fullScreen"});
        EXPECT_EQ(result.exitCode, 0) << result.error.constData();
    }

    // The loudest sample of each sound that was heard; each is followed by a tenth of a second of silence.
    std::vector<int> heard() const
    {
        constexpr int audible = 300;
        constexpr int pause = 4800;
        QFile file(recording);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        const QByteArray bytes = file.readAll();
        const auto* samples = reinterpret_cast<const qint16*>(bytes.constData());
        std::vector<int> peaks;
        int silent = pause;
        for (qsizetype index = 0; index < bytes.size() / 2; ++index) {
            const int loudness = std::abs(int(samples[index]));
            if (loudness < audible) {
                ++silent;
                continue;
            }
            if (silent >= pause)
                peaks.push_back(0);
            silent = 0;
            peaks.back() = std::max(peaks.back(), loudness);
        }
        if (silent < pause)
            peaks.pop_back();
        return peaks;
    }

    // Ends the program and answers how often it complained of a lack of sound.
    qsizetype complaints()
    {
        session.kovrel({"quit"});
        EXPECT_TRUE(instance->waitForFinished());
        EXPECT_EQ(instance->exitCode(), 0);
        return QString::fromUtf8(instance->readAllStandardError()).count("Sounds are not heard");
    }
};

} // namespace

TEST_F(SoundTest, TheShutterIsHeardAsLoudAsItShouldBe)
{
    startService();
    startProgram();
    capture("none", "1");
    capture("apple", "0");
    capture("pop", "1.5");
    ASSERT_TRUE(UserSession::eventually([&] { return heard().size() == 1; })) << "nor was anything heard before";
    capture("pop", "0.25");
    ASSERT_TRUE(UserSession::eventually([&] { return heard().size() == 2; }));
    capture("apple", "1");
    ASSERT_TRUE(UserSession::eventually([&] { return heard().size() == 3; }));
    const std::vector<int> peaks = heard();
    EXPECT_NEAR(peaks[0], 0.6 * 32767, 20) << "at full volume, not beyond";
    EXPECT_NEAR(peaks[1], 0.6 * 32767 / 4, 20);
    EXPECT_NEAR(peaks[2], 0.7 * 32767, 20);
    EXPECT_EQ(complaints(), 0);
}

TEST_F(SoundTest, AServiceMayComeAndGo)
{
    startProgram();
    QFile mapped(QString("/proc/%1/maps").arg(session.instancePid()));
    ASSERT_TRUE(mapped.open(QIODevice::ReadOnly));
    EXPECT_FALSE(mapped.readAll().contains("libpulse")) << "starting loads nothing for sounds";
    capture("pop", "1");
    capture("pop", "1");
    startService();
    capture("pop", "1");
    EXPECT_TRUE(UserSession::eventually([&] { return heard().size() == 1; }));
    service->terminate();
    ASSERT_TRUE(service->waitForFinished());
    capture("pop", "1");
    capture("pop", "1");
    EXPECT_EQ(complaints(), 2) << "once for each loss, not for each capture";
}

TEST_F(SoundTest, AServiceThatHangsHoldsNothingUp)
{
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    qstrncpy(address.sun_path, QFile::encodeName(socket).constData(), sizeof address.sun_path);
    ASSERT_EQ(::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(listener, 8), 0);
    startProgram();
    capture("pop", "1");
    capture("apple", "1");
    EXPECT_EQ(complaints(), 1);
    ::close(listener);
}

} // namespace Kovrel
