#include "platform/desktop/KeychainTokenStore.h"
#include "platform/desktop/QtMainLoop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QEventLoop>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>

namespace Kovrel {

namespace {

using namespace std::chrono_literals;

// The real keychain of a desktop, in folders and on a bus of a test's own. This process's bus address is fixed at its
// first use, which is here.
class Keyring {
public:
    explicit Keyring(bool isUnlocked)
    {
        // The keychain's library raises this when its bus ends before the process does.
        std::signal(SIGTERM, [](int) {});
        m_bus.start("dbus-daemon", {"--session", "--nofork", "--print-address=1"});
        m_bus.waitForReadyRead();
        const QByteArray address = m_bus.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        qputenv("XDG_DATA_HOME", m_folder.path().toUtf8());
        qputenv("XDG_RUNTIME_DIR", m_folder.path().toUtf8());
        QStringList arguments{"--foreground", "--components=secrets"};
        if (isUnlocked)
            arguments << "--unlock";
        m_daemon.start("gnome-keyring-daemon", arguments);
        m_daemon.waitForStarted();
        m_daemon.write("\n");
        m_daemon.waitForBytesWritten();
        m_daemon.closeWriteChannel();
        waitUntil([&] { return isThere() && (!isUnlocked || isOpen()); });
        if (!isUnlocked)
            return;
        const QDBusConnection bus = QDBusConnection::connectToBus(address, "keyring");
        waitUntil([&] { return isOffered(bus); });
        QDBusConnection::disconnectFromBus("keyring");
    }

    ~Keyring()
    {
        for (QProcess* process : {&m_daemon, &m_bus}) {
            process->terminate();
            process->waitForFinished();
        }
    }

private:
    static void waitUntil(const std::function<bool()>& isTrue)
    {
        for (int tries = 0; tries < 500 && !isTrue(); ++tries)
            QThread::msleep(20);
    }

    // Its secrets are offered on the bus when somebody first asks for them.
    bool isThere() const { return QFile::exists(m_folder.filePath("keyring/control")); }

    // What is unlocked for the first time is made, which takes a moment longer.
    bool isOpen() const { return QFile::exists(m_folder.filePath("keyrings/login.keyring")); }

    // And what was made is on the bus a moment after it is on the disk.
    static bool isOffered(const QDBusConnection& bus)
    {
        QDBusMessage question =
            QDBusMessage::createMethodCall("org.freedesktop.secrets", "/org/freedesktop/secrets/collection/login",
                                           "org.freedesktop.DBus.Properties", "Get");
        question << "org.freedesktop.Secret.Collection" << "Locked";
        return bus.call(question).type() == QDBusMessage::ReplyMessage;
    }

    QTemporaryDir m_folder;
    QProcess m_bus;
    QProcess m_daemon;
};

template <class T>
T await(const std::function<void(Reply<T>)>& ask)
{
    QEventLoop events;
    T answer{};
    ask([&](T value) {
        answer = value;
        events.quit();
    });
    events.exec();
    return answer;
}

using Token = std::optional<QString>;

} // namespace

TEST(KeychainTokenStore, KeepsReplacesAndForgetsTokens)
{
    const Keyring keyring(true);
    QtMainLoop loop;
    KeychainTokenStore store(loop, 10s);
    const auto read = [&] { return await<Token>([&](auto reply) { store.read("key", reply); }); };
    const auto write = [&](const char* token) {
        return await<TokenStore::Stored>([&](auto reply) { store.write("key", token, reply); }).has_value();
    };
    EXPECT_EQ(read(), std::nullopt);
    EXPECT_TRUE(write("first \u00e9"));
    EXPECT_EQ(read(), "first \u00e9");
    EXPECT_TRUE(write("second"));
    EXPECT_EQ(read(), "second");
    EXPECT_TRUE(await<bool>([&](auto reply) { store.remove("key", reply); }));
    EXPECT_EQ(read(), std::nullopt);
}

TEST(KeychainTokenStore, ALockedKeychainAnswersNothingWithinTheDeadline)
{
    const Keyring keyring(false);
    QtMainLoop loop;
    KeychainTokenStore store(loop, 300ms);
    EXPECT_FALSE(await<TokenStore::Stored>([&](auto reply) { store.write("key", "token", reply); }).has_value());
    EXPECT_EQ(await<Token>([&](auto reply) { store.read("key", reply); }), std::nullopt);
}

} // namespace Kovrel
