#include "tests/e2e/UserSession.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QThread>

#include <stdexcept>

#include <csignal>

namespace Kovrel::Testing {

namespace {

constexpr const char* busConfiguration = R"(
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
  "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <servicedir>SERVICES</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

constexpr int patienceMilliseconds = 15000;
constexpr int lookEveryMilliseconds = 20;

} // namespace

QJsonObject UserSession::Result::json() const
{
    return QJsonDocument::fromJson(output).object();
}

UserSession::UserSession(const VirtualDisplay* display, bool hasBus)
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    for (const char* name : {"home", "run", "config", "data", "cache", "tmp"})
        QDir().mkpath(path(name));
    QFile::setPermissions(path("run"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_SESSION_TYPE", "DBUS_SESSION_BUS_ADDRESS",
                             "XDG_CURRENT_DESKTOP", "QT_QPA_PLATFORM", "QT_SCREEN_SCALE_FACTORS", "PULSE_SERVER"})
        m_environment.remove(name);
    m_environment.insert("HOME", path("home"));
    m_environment.insert("XDG_RUNTIME_DIR", path("run"));
    m_environment.insert("XDG_CONFIG_HOME", path("config"));
    m_environment.insert("XDG_DATA_HOME", path("data"));
    m_environment.insert("XDG_CACHE_HOME", path("cache"));
    m_environment.insert("TMPDIR", path("tmp"));
    if (display)
        m_environment.insert("DISPLAY", display->name());
    if (hasBus)
        startBus();
}

UserSession::~UserSession()
{
    if (const qint64 pid = m_bus ? instancePid() : 0)
        ::kill(pid_t(pid), SIGKILL);
    for (const auto& program : m_programs) {
        program->kill();
        program->waitForFinished();
    }
    if (m_bus) {
        m_bus->terminate();
        m_bus->waitForFinished();
    }
}

// A bus that starts only what lies in the session's own folders: the machine's services would stay behind it.
void UserSession::startBus()
{
    QDir().mkpath(path("data/dbus-1/services"));
    QFile configuration(path("bus.conf"));
    if (!configuration.open(QIODevice::WriteOnly))
        throw std::runtime_error("no temporary file");
    configuration.write(QByteArray(busConfiguration).replace("SERVICES", path("data/dbus-1/services").toUtf8()));
    configuration.close();
    m_bus = std::make_unique<QProcess>();
    m_bus->setProcessEnvironment(m_environment);
    m_bus->start("dbus-daemon", {"--config-file=" + configuration.fileName(), "--nofork", "--print-address=1"});
    if (!m_bus->waitForReadyRead(patienceMilliseconds))
        throw std::runtime_error("no session bus");
    m_environment.insert("DBUS_SESSION_BUS_ADDRESS", QString::fromLatin1(m_bus->readLine()).trimmed());
}

void UserSession::endBus()
{
    m_bus->terminate();
    m_bus->waitForFinished();
    m_bus.reset();
}

UserSession::Result UserSession::run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(path("home"));
    process.start(program, arguments);
    if (!process.waitForFinished(2 * patienceMilliseconds))
        throw std::runtime_error(program.toStdString() + " did not end");
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1, process.readAllStandardOutput(),
            process.readAllStandardError()};
}

UserSession::Result UserSession::kovrel(const QStringList& arguments)
{
    return run(KOVREL_PROGRAM, arguments);
}

void UserSession::prepare(const QStringList& settings)
{
    kovrel({"sign-in", "--local"});
    QStringList all = settings;
    if (!std::exchange(m_isPrepared, true))
        all.prepend("afterCaptureActions=4");
    for (const QString& setting : all)
        kovrel({"preferences", "set", setting.section('=', 0, 0), setting.section('=', 1)});
}

QProcess& UserSession::start(const QString& program, const QStringList& arguments)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(m_environment);
    process->setWorkingDirectory(path("home"));
    process->start(program, arguments);
    if (!process->waitForStarted(patienceMilliseconds))
        throw std::runtime_error(program.toStdString() + " did not start");
    m_programs.push_back(std::move(process));
    return *m_programs.back();
}

QProcess& UserSession::startKovrel(const QStringList& arguments)
{
    return start(KOVREL_PROGRAM, arguments);
}

qint64 UserSession::ownerPid(const QString& name)
{
    const Result result = run("dbus-send", {"--session", "--print-reply=literal", "--dest=org.freedesktop.DBus", "/",
                                            "org.freedesktop.DBus.GetConnectionUnixProcessID", "string:" + name});
    return result.exitCode == 0 ? result.output.simplified().split(' ').last().toLongLong() : 0;
}

bool UserSession::eventually(const std::function<bool()>& condition)
{
    for (int waited = 0; waited < patienceMilliseconds; waited += lookEveryMilliseconds) {
        if (condition())
            return true;
        QThread::msleep(lookEveryMilliseconds);
    }
    return false;
}

QStringList UserSession::savedFiles() const
{
    return QDir(saveFolder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

} // namespace Kovrel::Testing
