#include "ports/CaptureTrace.h"

#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.capture", QtInfoMsg)

}

CaptureTrace::CaptureTrace(const MainLoop& loop, std::function<bool()> isEnabled)
    : m_loop(loop), m_isEnabled(std::move(isEnabled)), m_startMicroseconds(loop.now().count())
{
}

void CaptureTrace::begin()
{
    m_startMicroseconds = m_loop.now().count();
}

void CaptureTrace::mark(const QString& message) const
{
    if (!m_isEnabled())
        return;
    const double milliseconds = double(m_loop.now().count() - m_startMicroseconds) / 1000.0;
    qCInfo(log, "%s", qUtf8Printable(QString::asprintf("%8.1fms  ", milliseconds) + message));
}

} // namespace Kovrel
