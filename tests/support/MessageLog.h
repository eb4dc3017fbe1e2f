#pragma once

#include <QString>

#include <string>
#include <vector>

namespace Kovrel::Testing {

// Collects what is logged under one category while it lives; one at a time.
class MessageLog {
public:
    explicit MessageLog(const char* category);
    ~MessageLog();
    MessageLog(const MessageLog&) = delete;
    MessageLog& operator=(const MessageLog&) = delete;

    struct Line {
        std::string text;
        bool isWarning;
    };

    const std::vector<Line>& lines() const { return m_lines; }

    // The traces without the time that each begins with, and the warnings.
    std::vector<std::string> traces() const;
    std::vector<std::string> warnings() const;

private:
    static void take(QtMsgType type, const QMessageLogContext& context, const QString& message);

    static MessageLog* s_current;
    const char* m_category;
    QtMessageHandler m_previous;
    std::vector<Line> m_lines;
};

} // namespace Kovrel::Testing
