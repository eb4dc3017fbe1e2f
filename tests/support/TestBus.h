#pragma once

#include "tests/support/TempFolder.h"

#include <QFile>
#include <QProcess>
#include <QString>

namespace Kovrel::Testing {

// A session bus of the test's own, which the program under test takes for that of the desktop. It starts none of the
// machine's services.
class TestBus {
public:
    TestBus()
    {
        QFile file(m_folder / "bus.conf");
        if (file.open(QIODevice::WriteOnly))
            file.write(configuration);
        file.close();
        m_daemon.start("dbus-daemon", {"--config-file=" + file.fileName(), "--nofork", "--print-address"});
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
    static constexpr const char* configuration =
        "<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>"
        "<policy context='default'><allow send_destination='*' eavesdrop='true'/><allow eavesdrop='true'/>"
        "<allow own='*'/></policy></busconfig>";

    TempFolder m_folder;
    QProcess m_daemon;
    QString m_address;
};

} // namespace Kovrel::Testing
