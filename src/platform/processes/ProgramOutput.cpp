#include "platform/processes/ProgramOutput.h"

#include "platform/processes/WorkerWait.h"

#include <QProcess>

#include <utility>

namespace Kovrel {

std::optional<QByteArray> ProgramOutput::of(const QString& program, const QStringList& arguments,
                                            std::chrono::milliseconds patience, std::stop_token stop)
{
    WorkerWait wait(patience, std::move(stop));
    QByteArray output;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "C.UTF-8");
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &process, [&] {
        output += process.readAllStandardOutput();
        if (output.size() > most)
            process.kill();
    });
    QObject::connect(&process, &QProcess::finished, &process, [&] { wait.end(); });
    QObject::connect(&process, &QProcess::errorOccurred, &process, [&] { wait.end(); });
    process.start(program, arguments);
    const bool hasEnded = wait.wait();
    process.kill();
    process.waitForFinished();
    const bool isWhole = hasEnded && process.exitStatus() == QProcess::NormalExit && output.size() <= most;
    return isWhole && process.error() == QProcess::UnknownError && process.exitCode() == 0 ? std::optional(output)
                                                                                           : std::nullopt;
}

} // namespace Kovrel
