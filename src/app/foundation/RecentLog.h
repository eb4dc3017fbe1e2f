#pragma once

#include <QStringList>
#include <QtGlobal>

#include <deque>
#include <mutex>

namespace Kovrel {

// The last lines that the program has logged, for whoever reports a fault. Any thread.
class RecentLog {
public:
    static RecentLog& shared();

    static constexpr size_t mostLines = 300;
    static constexpr qsizetype longestLine = 400; // characters; what is longer is cut

    void add(QtMsgType type, const char* category, const QString& message);

    // The oldest first, each with its time of day.
    QStringList lines() const;

private:
    mutable std::mutex m_lock;
    std::deque<QString> m_lines;
};

} // namespace Kovrel
