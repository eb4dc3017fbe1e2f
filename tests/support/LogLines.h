#pragma once

#include <QStringList>

namespace Kovrel::Testing {

// Catches what the program logs, instead of showing it, while it lives. One at a time.
class LogLines {
public:
    LogLines()
    {
        lines().clear();
        m_before = qInstallMessageHandler([](QtMsgType, const QMessageLogContext& context, const QString& text) {
            lines() << QString::fromLatin1(context.category) + ": " + text;
        });
    }

    ~LogLines() { qInstallMessageHandler(m_before); }

    LogLines(const LogLines&) = delete;
    LogLines& operator=(const LogLines&) = delete;

    // "category: text", in order.
    static QStringList& lines()
    {
        static QStringList all;
        return all;
    }

private:
    QtMessageHandler m_before;
};

} // namespace Kovrel::Testing
