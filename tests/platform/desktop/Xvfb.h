#pragma once

#include <QProcess>

namespace Kovrel::Testing {

// A display server of a test's own, on whatever number is free.
class Xvfb {
public:
    Xvfb()
    {
        m_server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "800x600x24", "-nolisten", "tcp"});
        m_server.waitForReadyRead();
        m_display = ":" + QString::fromLatin1(m_server.readLine()).trimmed();
    }

    ~Xvfb()
    {
        m_server.terminate();
        m_server.waitForFinished();
    }

    // The environment of a program that runs on it.
    QProcessEnvironment environment() const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("DISPLAY", m_display);
        environment.insert("QT_QPA_PLATFORM", "xcb");
        return environment;
    }

private:
    QProcess m_server;
    QString m_display;
};

} // namespace Kovrel::Testing
