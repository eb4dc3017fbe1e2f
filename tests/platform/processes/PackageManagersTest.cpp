#include "platform/processes/ProgramOutput.h"
#include "platform/processes/SystemPackages.h"
#include "tests/support/EventLoop.h"
#include "tests/support/TempFolder.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QFile>
#include <QProcess>
#include <QTimer>

#include <gtest/gtest.h>

#include <thread>

namespace Kovrel {

using namespace std::chrono_literals;

// Stands on the system bus as PackageKit, and is as well as the test says.
class StandingPackageKit : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.PackageKit")

public:
    enum class Health { well, signalsFirst, refuses, fails, junk, hangs, neverFinishes };

    Health health = Health::well;

public Q_SLOTS:

    QDBusObjectPath CreateTransaction()
    {
        if (health == Health::hangs)
            setDelayedReply(true);
        if (health == Health::refuses)
            sendErrorReply(QDBusError::AccessDenied, "not for you");
        return QDBusObjectPath(health == Health::junk ? "/" : "/42_abc");
    }
};

class StandingTransaction : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.PackageKit.Transaction")

public:
    using Health = StandingPackageKit::Health;

    explicit StandingTransaction(const Health& health) : m_health(health) {}

    QStringList resolved;

public Q_SLOTS:

    void Resolve(qulonglong, const QStringList& packages)
    {
        resolved << packages;
        if (m_health == Health::signalsFirst)
            tell();
        else
            QTimer::singleShot(0, this, &StandingTransaction::tell);
    }

Q_SIGNALS:
    void Package(uint info, const QString& id, const QString& summary);
    void ErrorCode(uint code, const QString& details);
    void Finished(uint exit, uint milliseconds);

private:
    void tell()
    {
        if (m_health == Health::fails)
            Q_EMIT ErrorCode(4, "the database\nis locked");
        for (const char* id : {"kovrel;1.2-1;amd64;installed", "kovrel;1.3-1;amd64;stable", "kovrel-doc;9;all;stable",
                               "kovrel;8", ";;;"})
            Q_EMIT Package(2, id, "screenshots");
        if (m_health != Health::neverFinishes)
            Q_EMIT Finished(m_health == Health::fails ? 2 : 1, 5);
    }

    const Health& m_health;
};

namespace {

using Health = StandingPackageKit::Health;

// A system bus of the test's own, and a folder of programs that stand before all others.
struct PackageManagersTest : testing::Test {
    Testing::TempFolder folder;
    StandingPackageKit packageKit;
    StandingTransaction transaction{packageKit.health};
    QByteArray path = qgetenv("PATH");

    // Where the bus is, a process learns only once.
    static QProcess& daemon()
    {
        static QProcess daemon;
        return daemon;
    }

    static void SetUpTestSuite()
    {
        daemon().start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        ASSERT_TRUE(daemon().waitForReadyRead());
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", daemon().readLine().trimmed());
    }

    static void TearDownTestSuite()
    {
        daemon().kill();
        daemon().waitForFinished();
    }

    void SetUp() override
    {
        auto bus = QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS"), "packages");
        bus.registerObject("/org/freedesktop/PackageKit", &packageKit, QDBusConnection::ExportAllSlots);
        bus.registerObject("/42_abc", &transaction,
                           QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    }

    void TearDown() override
    {
        QDBusConnection::disconnectFromBus("packages");
        qputenv("PATH", path);
    }

    static bool standUp() { return QDBusConnection("packages").registerService("org.freedesktop.PackageKit"); }

    // Without it there is no apt.
    void putApt(const QByteArray& script)
    {
        QFile program(folder / "apt-cache");
        ASSERT_TRUE(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\n" + script + '\n');
        program.close();
        program.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", folder.path().toUtf8() + ':' + path);
    }

    // Asked on a worker, while the bus is served here.
    static std::expected<QStringList, QString> asked(const PackageManager& manager, std::stop_token stop = {})
    {
        std::optional<std::expected<QStringList, QString>> answer;
        std::atomic<bool> isDone = false;
        std::thread worker([&] {
            answer = manager.versions("kovrel", std::move(stop));
            isDone = true;
        });
        EXPECT_TRUE(Testing::waitFor([&] { return isDone.load(); }));
        worker.join();
        return *answer;
    }
};

} // namespace

TEST_F(PackageManagersTest, PackageKitTellsAllVersionsOrWhyItDoesNot)
{
    ASSERT_TRUE(standUp());
    const std::expected<QStringList, QString> versions = QStringList{"1.2-1", "1.3-1"};
    const std::pair<Health, std::expected<QStringList, QString>> cases[] = {
        {Health::well, versions},
        {Health::signalsFirst, versions},
        {Health::refuses, std::unexpected("not for you")},
        {Health::fails, std::unexpected("PackageKit: the database is locked")},
        {Health::junk, std::unexpected(QString())},
        {Health::hangs, std::unexpected("PackageKit does not answer")},
        {Health::neverFinishes, std::unexpected("PackageKit does not come to an end")},
    };
    for (const auto& [health, expected] : cases) {
        packageKit.health = health;
        const auto answer =
            asked(PackageKitPackages(health == Health::hangs || health == Health::neverFinishes ? 100ms : 10s));
        ASSERT_EQ(answer.has_value(), expected.has_value()) << int(health);
        if (answer)
            EXPECT_EQ(*answer, *expected) << int(health);
        else if (!expected.error().isEmpty())
            EXPECT_EQ(answer.error(), expected.error());
    }
    EXPECT_EQ(transaction.resolved.first(), "kovrel");
}

TEST_F(PackageManagersTest, AptTellsItsCandidateOrWhyItDoesNot)
{
    const std::pair<const char*, std::optional<QStringList>> cases[] = {
        {"[ \"$*\" = 'policy kovrel' ] && printf 'kovrel:\\n  Installed: 1.2-1\\n  Candidate: 1:1.3-1\\n  Version "
         "table:\\n'",
         QStringList{"1:1.3-1"}},
        {"printf 'kovrel:\\n  Installed: (none)\\n  Candidate: (none)\\n'", QStringList()},
        {"true", QStringList()}, // it does not know the package
        {"echo 'Candidate: 1.3'", std::nullopt},
        {"head -c 300 /dev/urandom", std::nullopt},
        {"yes", std::nullopt},
        {"echo '  Candidate: 1.3'; exit 1", std::nullopt},
        {"echo '  Candidate: 1.3'; kill -9 $$", std::nullopt},
    };
    for (const auto& [script, expected] : cases) {
        putApt(script);
        const auto answer = asked(AptPackages(10s));
        ASSERT_EQ(answer.has_value(), expected.has_value()) << script;
        if (answer)
            EXPECT_EQ(*answer, *expected) << script;
    }
    putApt("exec sleep 1000");
    EXPECT_FALSE(asked(AptPackages(100ms)));
}

TEST_F(PackageManagersTest, AptIsAskedWherePackageKitGivesNoAnswer)
{
    putApt("echo '  Candidate: 7'");
    const SystemPackages packages(10s);
    EXPECT_EQ(asked(packages).value_or(QStringList()), QStringList("7"));
    ASSERT_TRUE(standUp());
    EXPECT_EQ(asked(packages).value_or(QStringList()), QStringList({"1.2-1", "1.3-1"}));
    packageKit.health = Health::fails;
    EXPECT_EQ(asked(packages).value_or(QStringList()), QStringList("7"));
    qputenv("PATH", folder.path().toUtf8() + "/none");
    EXPECT_EQ(asked(packages).error(), "PackageKit: the database is locked") << "there is no other";
}

TEST_F(PackageManagersTest, AQuestionIsGivenUpWhenTheProgramEnds)
{
    ASSERT_TRUE(standUp());
    packageKit.health = Health::hangs;
    putApt("touch " + folder.path().toUtf8() + "/asked; exec sleep 1000");
    for (const bool isBefore : {true, false}) {
        std::stop_source stop;
        if (isBefore)
            stop.request_stop();
        QTimer::singleShot(0, [&] { stop.request_stop(); });
        EXPECT_FALSE(asked(SystemPackages(1h), stop.get_token()));
    }
    EXPECT_FALSE(QFile::exists(folder / "asked")) << "nobody else is asked then";
}

} // namespace Kovrel

#include "PackageManagersTest.moc"
