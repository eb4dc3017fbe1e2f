#include "platform/desktop/Gsettings.h"

#include <QProcess>

namespace Kovrel {

namespace {

constexpr int patienceMilliseconds = 5000;

} // namespace

std::optional<QString> Gsettings::run(const QStringList& arguments)
{
    QProcess program;
    program.start("gsettings", arguments);
    if (!program.waitForFinished(patienceMilliseconds) || program.exitStatus() != QProcess::NormalExit ||
        program.exitCode() != 0) {
        program.kill();
        program.waitForFinished();
        return std::nullopt;
    }
    return QString::fromUtf8(program.readAllStandardOutput());
}

} // namespace Kovrel
