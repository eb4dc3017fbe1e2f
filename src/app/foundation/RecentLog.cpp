#include "app/foundation/RecentLog.h"

#include <QTime>

namespace Kovrel {

namespace {

const char* nameOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return "debug";
    case QtInfoMsg:
        return "info";
    case QtWarningMsg:
        return "warning";
    case QtCriticalMsg:
    case QtFatalMsg:
        return "error";
    }
    return "";
}

} // namespace

RecentLog& RecentLog::shared()
{
    static RecentLog log;
    return log;
}

void RecentLog::add(QtMsgType type, const char* category, const QString& message)
{
    const QString time = QTime::currentTime().toString("HH:mm:ss");
    const QString line = QString("%1 %2 %3: %4").arg(time, nameOf(type), category, message.simplified());
    const std::lock_guard locked(m_lock);
    m_lines.push_back(line.left(longestLine));
    if (m_lines.size() > mostLines)
        m_lines.pop_front();
}

QStringList RecentLog::lines() const
{
    const std::lock_guard locked(m_lock);
    return {m_lines.begin(), m_lines.end()};
}

} // namespace Kovrel
