#pragma once

#include "platform/MainLoop.h"
#include "platform/ToolProcess.h"

#include <map>

namespace Kovrel::Testing {

// Child processes that end when the test says so. A killed one ends too, but later, as real ones do.
class FakeToolProcess : public ToolProcess {
public:
    explicit FakeToolProcess(MainLoop& loop) : m_loop(loop) {}

    struct Start {
        QString program;
        QStringList arguments;
        QMap<QString, QString> variables;
    };

    int failingStarts = 0;     // so many of the next starts fail
    bool ignoresKill = false;  // stays, as one that hangs in the kernel
    std::vector<Start> starts; // those that succeeded
    std::vector<qint64> kills;

    std::optional<qint64> start(const QString& program, const QStringList& arguments,
                                const QMap<QString, QString>& variables, Reply<ToolExit> exited) override
    {
        if (failingStarts > 0) {
            --failingStarts;
            return {};
        }
        starts.push_back({program, arguments, variables});
        m_running.emplace(++m_lastPid, std::move(exited));
        return m_lastPid;
    }

    bool isRunning(qint64 pid) const override { return m_running.contains(pid); }

    void kill(qint64 pid) override
    {
        if (!isRunning(pid))
            return;
        kills.push_back(pid);
        if (!ignoresKill)
            m_loop.post([this, pid] { end(pid, {.isCrash = true}); });
    }

    void end(qint64 pid, ToolExit exit)
    {
        if (auto running = m_running.extract(pid))
            running.mapped()(exit);
    }

    qint64 lastPid() const { return m_lastPid; }

private:
    MainLoop& m_loop;
    qint64 m_lastPid = 100;
    std::map<qint64, Reply<ToolExit>> m_running;
};

} // namespace Kovrel::Testing
