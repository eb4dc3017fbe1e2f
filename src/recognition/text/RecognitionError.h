#pragma once

#include <QString>

#include <stdexcept>

namespace Kovrel {

// Thrown out of a recognition: what went wrong, in one line for people.
class RecognitionError : public std::runtime_error {
public:
    explicit RecognitionError(const QString& message, bool isCancelled = false)
        : std::runtime_error(message.toStdString()), m_isCancelled(isCancelled)
    {
    }

    QString message() const { return QString::fromUtf8(what()); }

    bool isCancelled() const { return m_isCancelled; }

private:
    bool m_isCancelled;
};

} // namespace Kovrel
