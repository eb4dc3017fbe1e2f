#include "tests/support/VirtualDisplay.h"

#include <QDeadlineTimer>

#include <stdexcept>

#include <xcb/randr.h>
#include <xcb/xcb.h>
#include <xcb/xcbext.h>

namespace Kovrel::Testing {

namespace {

constexpr const char* twoOutputs = R"(
Section "ServerFlags"
  Option "AutoAddDevices" "false"
  Option "AutoEnableDevices" "false"
  Option "AllowMouseOpenFail" "true"
  Option "DontVTSwitch" "true"
EndSection
Section "Device"
  Identifier "dummy"
  Driver "dummy"
  VideoRam 256000
  Option "VirtualHeads" "2"
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 5.0-1000.0
  VertRefresh 5.0-200.0
  Modeline "1920x1080" 173.00 1920 2048 2248 2576 1080 1083 1088 1120
EndSection
Section "Screen"
  Identifier "screen"
  Device "dummy"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Depth 24
    Modes "1920x1080"
    Virtual 7680 4320
  EndSubSection
EndSection
)";

// A short-lived connection for one question or order.
class Visitor {
public:
    explicit Visitor(const QByteArray& display) : connection(xcb_connect(display.constData(), nullptr))
    {
        if (xcb_connection_has_error(connection) == 0)
            root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    }

    ~Visitor() { xcb_disconnect(connection); }

    Visitor(const Visitor&) = delete;
    Visitor& operator=(const Visitor&) = delete;

    xcb_atom_t atom(const QByteArray& name) const
    {
        auto* reply = xcb_intern_atom_reply(
            connection, xcb_intern_atom(connection, false, uint16_t(name.size()), name.constData()), nullptr);
        const xcb_atom_t result = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
        free(reply);
        return result;
    }

    bool hasOwner(const QByteArray& selection) const
    {
        auto* reply =
            xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom(selection)), nullptr);
        const bool isOwned = reply && reply->owner != XCB_NONE;
        free(reply);
        return isOwned;
    }

    void roundTrip() const { free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr)); }

    // The one output, which one of the monitors must have.
    xcb_randr_output_t output() const
    {
        auto* reply = xcb_randr_get_screen_resources_current_reply(
            connection, xcb_randr_get_screen_resources_current(connection, root), nullptr);
        const xcb_randr_output_t first =
            reply && reply->num_outputs > 0 ? *xcb_randr_get_screen_resources_current_outputs(reply) : 0;
        free(reply);
        return first;
    }

    // Sent by hand: the library's own function counts its bytes wrong.
    void setMonitor(const VirtualDisplay::Monitor& monitor, bool isPrimary) const
    {
        struct {
            xcb_randr_set_monitor_request_t request;
            xcb_randr_monitor_info_t info;
            xcb_randr_output_t output;
        } message = {};

        message.request.window = root;
        message.info.name = atom(monitor.name);
        message.info.primary = isPrimary;
        message.info.nOutput = isPrimary;
        message.info.x = int16_t(monitor.pixels.x());
        message.info.y = int16_t(monitor.pixels.y());
        message.info.width = uint16_t(monitor.pixels.width());
        message.info.height = uint16_t(monitor.pixels.height());
        message.output = output();
        const size_t length = sizeof message - (isPrimary ? 0 : sizeof message.output);
        iovec parts[4] = {{}, {}, {&message, length}, {nullptr, 0}}; // the first two are the library's
        const xcb_protocol_request_t protocol{2, &xcb_randr_id, XCB_RANDR_SET_MONITOR, 1};
        xcb_send_request(connection, 0, parts + 2, &protocol);
    }

    xcb_connection_t* connection;
    xcb_window_t root = XCB_NONE;
};

} // namespace

VirtualDisplay::VirtualDisplay(QSize size, int depth, const QStringList& options)
{
    const auto screen = QStringLiteral("%1x%2x%3").arg(size.width()).arg(size.height()).arg(depth);
    start("Xvfb", QStringList{"-screen", "0", screen} + options);
}

VirtualDisplay::VirtualDisplay(TwoOutputs)
{
    QFile configuration(m_folder / "xorg.conf");
    if (!configuration.open(QIODevice::WriteOnly))
        throw std::runtime_error("no temporary file");
    configuration.write(twoOutputs);
    configuration.close();
    start("Xorg", {"-config", configuration.fileName(), "-logfile", m_folder / "xorg.log", "-novtswitch", "-sharevts"});
    arrange({"--addmode", "DUMMY1", "1920x1080", "--output", "DUMMY0", "--mode", "1920x1080", "--primary"});
}

void VirtualDisplay::start(const QString& program, const QStringList& arguments)
{
    m_server.start(program, arguments + QStringList{"-displayfd", "1", "-nolisten", "tcp", "-noreset"});
    QByteArray number;
    while (!number.endsWith('\n') && m_server.waitForReadyRead(20000))
        number += m_server.readAllStandardOutput();
    if (!number.endsWith('\n'))
        throw std::runtime_error(program.toStdString() + " did not start");
    m_name = ":" + number.trimmed();
}

QProcessEnvironment VirtualDisplay::environment() const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", m_name);
    return environment;
}

void VirtualDisplay::arrange(const QStringList& options)
{
    QProcess xrandr;
    xrandr.setProcessEnvironment(environment());
    xrandr.start("xrandr", options);
    if (!xrandr.waitForFinished(20000) || xrandr.exitCode() != 0)
        throw std::runtime_error("xrandr failed: " + xrandr.readAllStandardError().toStdString());
}

VirtualDisplay::~VirtualDisplay()
{
    for (const auto& program : m_programs) {
        program->kill();
        program->waitForFinished();
    }
    end();
}

void VirtualDisplay::end()
{
    m_server.terminate(); // it takes its lock file with it
    if (m_server.state() != QProcess::NotRunning && !m_server.waitForFinished(10000))
        m_server.kill();
    m_server.waitForFinished();
}

void VirtualDisplay::setMonitors(const std::vector<Monitor>& monitors)
{
    const Visitor visitor(m_name);
    for (const QByteArray& name : std::exchange(m_monitors, {}))
        xcb_randr_delete_monitor(visitor.connection, visitor.root, visitor.atom(name));
    for (size_t index = monitors.size(); index-- > 0;) { // the primary one is not the server's first
        visitor.setMonitor(monitors[index], index == 0);
        m_monitors.push_back(monitors[index].name);
    }
    visitor.roundTrip();
}

qint64 VirtualDisplay::run(const QString& program, const QStringList& arguments, const QByteArray& selection)
{
    auto& process = *m_programs.emplace_back(std::make_unique<QProcess>());
    process.setProcessEnvironment(environment());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    const Visitor visitor(m_name);
    const QDeadlineTimer deadline(20000);
    while (!visitor.hasOwner(selection)) {
        if (deadline.hasExpired() || process.waitForFinished(5))
            throw std::runtime_error(program.toStdString() + " did not start");
    }
    return process.processId();
}

} // namespace Kovrel::Testing
