#include "platform/desktop/SpawnedToolProcess.h"

#include <QFile>
#include <QProcessEnvironment>

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" { // glibc 2.36 forgot it
#include <sys/pidfd.h>
}

namespace Kovrel {

namespace {

// Strings as C wants them.
class CStrings {
public:
    explicit CStrings(const QStringList& strings)
    {
        for (const QString& string : strings)
            m_bytes.push_back(QFile::encodeName(string));
        for (QByteArray& bytes : m_bytes)
            m_pointers.push_back(bytes.data());
        m_pointers.push_back(nullptr);
    }

    char* const* data() const { return m_pointers.data(); }

private:
    std::vector<QByteArray> m_bytes;
    std::vector<char*> m_pointers;
};

QStringList environmentWith(const QMap<QString, QString>& variables)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    for (auto variable = variables.begin(); variable != variables.end(); ++variable)
        environment.insert(variable.key(), variable.value());
    return environment.toStringList();
}

// Without input, and with the signals as they are for a new program.
std::optional<pid_t> spawn(const QString& program, const QStringList& arguments, const QStringList& environment,
                           const ErrorOutput& errors)
{
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    if (errors.descriptor() >= 0)
        posix_spawn_file_actions_adddup2(&files, errors.descriptor(), STDERR_FILENO);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    pid_t pid = 0;
    const int error = posix_spawn(&pid, QFile::encodeName(program).constData(), &files, &attributes,
                                  CStrings(QStringList(program) + arguments).data(), CStrings(environment).data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return error == 0 ? std::optional(pid) : std::nullopt;
}

ToolExit waitFor(pid_t pid)
{
    int status = 0;
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? ToolExit{false, WEXITSTATUS(status)} : ToolExit{true, 0};
}

} // namespace

SpawnedToolProcess::~SpawnedToolProcess()
{
    for (auto& [pid, child] : m_children) {
        ::kill(pid_t(pid), SIGKILL);
        waitFor(pid_t(pid));
        close(child.descriptor);
    }
}

std::optional<qint64> SpawnedToolProcess::start(const QString& program, const QStringList& arguments,
                                                const QMap<QString, QString>& variables, Reply<ToolExit> exited)
{
    auto errors = std::make_unique<ErrorOutput>();
    const auto pid = spawn(program, arguments, environmentWith(variables), *errors);
    if (!pid)
        return {};
    const int descriptor = pidfd_open(*pid, 0);
    if (descriptor < 0) {
        ::kill(*pid, SIGKILL);
        waitFor(*pid);
        return {};
    }
    auto notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), [this, pid] { reap(*pid); });
    m_children.emplace(*pid, Child{descriptor, std::move(notifier), std::move(errors), std::move(exited)});
    return *pid;
}

void SpawnedToolProcess::kill(qint64 pid)
{
    if (isRunning(pid))
        ::kill(pid_t(pid), SIGKILL);
}

void SpawnedToolProcess::reap(qint64 pid)
{
    auto child = m_children.extract(pid);
    child.mapped().notifier->setEnabled(false);
    child.mapped().notifier.release()->deleteLater(); // it is what calls us
    ToolExit exit = waitFor(pid_t(pid));
    exit.message = child.mapped().errors->text();
    close(child.mapped().descriptor);
    child.mapped().exited(exit);
}

} // namespace Kovrel
