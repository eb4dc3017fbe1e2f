#pragma once

#include "platform/ToolProcess.h"
#include "platform/desktop/ErrorOutput.h"

#include <QSocketNotifier>

#include <map>
#include <memory>

namespace Kovrel {

// Child processes of the operating system, whose end comes through the event loop: no signal handler, no polling.
// Those that run when this object goes are killed, and their replies dropped.
class SpawnedToolProcess : public ToolProcess {
public:
    SpawnedToolProcess() = default;
    ~SpawnedToolProcess() override;
    SpawnedToolProcess(const SpawnedToolProcess&) = delete;
    SpawnedToolProcess& operator=(const SpawnedToolProcess&) = delete;

    std::optional<qint64> start(const QString& program, const QStringList& arguments,
                                const QMap<QString, QString>& variables, Reply<ToolExit> exited) override;

    bool isRunning(qint64 pid) const override { return m_children.contains(pid); }

    void kill(qint64 pid) override;

private:
    struct Child {
        int descriptor; // of the process: readable once it has ended, and never another process's
        std::unique_ptr<QSocketNotifier> notifier;
        std::unique_ptr<ErrorOutput> errors;
        Reply<ToolExit> exited;
    };

    void reap(qint64 pid);

    std::map<qint64, Child> m_children;
};

} // namespace Kovrel
