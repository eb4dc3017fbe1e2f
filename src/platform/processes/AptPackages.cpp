#include "platform/processes/AptPackages.h"

#include "platform/processes/ProgramOutput.h"

#include <QRegularExpression>
#include <QStandardPaths>

namespace Kovrel {

namespace {

constexpr const char* program = "apt-cache";

} // namespace

bool AptPackages::isThere()
{
    return !QStandardPaths::findExecutable(program).isEmpty();
}

std::expected<QStringList, QString> AptPackages::versions(const QString& package, std::stop_token stop) const
{
    static const QRegularExpression candidate("^  Candidate: (\\S+)$", QRegularExpression::MultilineOption);
    const auto output = ProgramOutput::of(program, {"policy", package}, m_patience, std::move(stop));
    if (!output)
        return std::unexpected(QString(program) + " gave no answer");
    if (output->trimmed().isEmpty())
        return QStringList();
    const auto match = candidate.match(QString::fromUtf8(*output));
    if (!match.hasMatch())
        return std::unexpected(QString(program) + " gave an answer without a version");
    const QString version = match.captured(1);
    return version == "(none)" ? QStringList() : QStringList(version);
}

} // namespace Kovrel
