#pragma once

#include "tests/support/TempFolder.h"

#include <QByteArray>
#include <QProcess>
#include <QRect>
#include <QSize>

#include <memory>
#include <vector>

namespace Kovrel::Testing {

// An X server of a test's own, on a free display, without a screen, ended with the object.
class VirtualDisplay {
public:
    // `options` are the server's, as "-extension", "MIT-SHM" for one without that.
    explicit VirtualDisplay(QSize size = {1280, 800}, int depth = 24, const QStringList& options = {});

    // A server with two real outputs of 1920 x 1080, DUMMY0 and DUMMY1, of which only the first is on. It reads its
    // configuration from a file of ours, which X servers allow to root only.
    struct TwoOutputs {};

    explicit VirtualDisplay(TwoOutputs);
    ~VirtualDisplay();
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    const QByteArray& name() const { return m_name; } // ":7"

    // Divides the screen into monitors, the first one being the primary; replaces earlier ones.
    struct Monitor {
        QByteArray name;
        QRect pixels;
    };

    void setMonitors(const std::vector<Monitor>& monitors);

    // Arranges the outputs, with the options of xrandr.
    void arrange(const QStringList& options);

    // Runs a program on this display until the object goes: a window manager, a compositor. Returns its process's id
    // when `selection` has an owner.
    qint64 run(const QString& program, const QStringList& arguments, const QByteArray& selection);

    // That of a program which runs on this display.
    QProcessEnvironment environment() const;

    // Ends the server.
    void end();

private:
    void start(const QString& program, const QStringList& arguments);

    TempFolder m_folder;
    QByteArray m_name;
    std::vector<QByteArray> m_monitors;
    std::vector<std::unique_ptr<QProcess>> m_programs;
    QProcess m_server;
};

} // namespace Kovrel::Testing
