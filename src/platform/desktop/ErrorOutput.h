#pragma once

#include <QString>

namespace Kovrel {

// What a child process writes to its standard error: kept in memory, where it never waits for a reader.
class ErrorOutput {
public:
    ErrorOutput();
    ~ErrorOutput();
    ErrorOutput(const ErrorOutput&) = delete;
    ErrorOutput& operator=(const ErrorOutput&) = delete;

    // To write to; -1 when there is none to be had.
    int descriptor() const { return m_descriptor; }

    // The end of what was written so far, on one line.
    QString text() const;

private:
    int m_descriptor;
};

} // namespace Kovrel
