#pragma once

#include "platform/Reply.h"

#include <QMap>
#include <QStringList>

#include <optional>

namespace Kovrel {

// How a child process ended.
struct ToolExit {
    bool isCrash = false; // by a signal, also one of `kill`
    int status = 0;       // otherwise
    QString message = {}; // what it wrote to its standard error, on one line; the end where that is long

    bool isOk() const { return !isCrash && status == 0; }

    bool operator==(const ToolExit&) const = default;
};

// Small programs run as child processes. Main thread.
class ToolProcess {
public:
    virtual ~ToolProcess() = default;

    // The process identifier; no value when the program can't be started, and then `exited` is never called. The
    // variables are added to this program's environment.
    virtual std::optional<qint64> start(const QString& program, const QStringList& arguments,
                                        const QMap<QString, QString>& variables, Reply<ToolExit> exited) = 0;

    // Whether a process that was started has not ended.
    virtual bool isRunning(qint64 pid) const = 0;
    // Ends one that is running at once (SIGKILL); `exited` is still called.
    virtual void kill(qint64 pid) = 0;
};

} // namespace Kovrel
