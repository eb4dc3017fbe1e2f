#include "platform/desktop/WorkerFilePrograms.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"

#include <QLoggingCategory>
#include <QProcess>
#include <QStandardPaths>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.desktop")

constexpr const char* mailer = "xdg-email";

} // namespace

WorkerFilePrograms::WorkerFilePrograms(MainLoop& loop, Workers& workers, std::shared_ptr<const FileOpener> opener)
    : m_loop(loop), m_workers(workers), m_opener(std::move(opener))
{
    const auto isThere = [] { return !QStandardPaths::findExecutable(mailer).isEmpty(); };
    replyFromWorker<bool>(loop, workers, Lane::utility, Guarded::orElse(isThere, false),
                          m_lifeline.guard([this](bool canMail) { m_canMail = canMail; }));
}

void WorkerFilePrograms::openers(const QString& fileName, Reply<std::vector<FileProgram>> reply)
{
    const auto job = [opener = m_opener, fileName] { return opener->openers(fileName); };
    replyFromWorker<std::vector<FileProgram>>(m_loop, m_workers, Lane::utility, Guarded::orElse(job, {}),
                                              std::move(reply));
}

void WorkerFilePrograms::launch(const QString& path, const std::optional<QString>& programID)
{
    m_workers.submit(Lane::utility, [opener = m_opener, path, programID] {
        if (const auto outcome = opener->open(path, programID); !outcome)
            qCWarning(log, "%s can't be opened: %s", qUtf8Printable(path), qUtf8Printable(outcome.error()));
    });
}

void WorkerFilePrograms::prefer(const QString& fileName, const QString& programID)
{
    m_workers.submit(Lane::utility, [opener = m_opener, fileName, programID] {
        if (const auto outcome = opener->prefer(fileName, programID); !outcome)
            qCWarning(log, "%s does not become the program for %s: %s", qUtf8Printable(programID),
                      qUtf8Printable(fileName), qUtf8Printable(outcome.error()));
    });
}

void WorkerFilePrograms::mail(const QString& path)
{
    m_workers.submit(Lane::utility, [path] {
        if (!QProcess::startDetached(mailer, {"--attach", path}))
            qCWarning(log, "There is no mail program to send %s", qUtf8Printable(path));
    });
}

} // namespace Kovrel
