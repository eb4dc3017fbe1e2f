#pragma once

#include <QProcess>
#include <QString>

namespace Kovrel::Testing {

// A session bus of the test's own, which the program under test takes for that of the desktop.
class TestBus {
public:
    TestBus()
    {
        m_daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        m_daemon.waitForReadyRead();
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_address.toUtf8());
    }

    ~TestBus()
    {
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }

    TestBus(const TestBus&) = delete;
    TestBus& operator=(const TestBus&) = delete;

    QString address() const { return m_address; }

private:
    QProcess m_daemon;
    QString m_address;
};

} // namespace Kovrel::Testing
