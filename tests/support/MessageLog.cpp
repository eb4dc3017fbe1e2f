#include "tests/support/MessageLog.h"

#include <cstring>

namespace Kovrel::Testing {

MessageLog* MessageLog::s_current = nullptr;

MessageLog::MessageLog(const char* category) : m_category(category)
{
    s_current = this;
    m_previous = qInstallMessageHandler(&MessageLog::take);
}

MessageLog::~MessageLog()
{
    qInstallMessageHandler(m_previous);
    s_current = nullptr;
}

void MessageLog::take(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (context.category && std::strcmp(context.category, s_current->m_category) == 0)
        s_current->m_lines.push_back({message.toStdString(), type == QtWarningMsg});
    else if (s_current->m_previous)
        s_current->m_previous(type, context, message);
}

std::vector<std::string> MessageLog::traces() const
{
    static constexpr size_t timeLength = 12; // "%8.1fms  "
    std::vector<std::string> texts;
    for (const Line& line : m_lines) {
        if (!line.isWarning)
            texts.push_back(line.text.substr(timeLength));
    }
    return texts;
}

std::vector<std::string> MessageLog::warnings() const
{
    std::vector<std::string> texts;
    for (const Line& line : m_lines) {
        if (line.isWarning)
            texts.push_back(line.text);
    }
    return texts;
}

} // namespace Kovrel::Testing
