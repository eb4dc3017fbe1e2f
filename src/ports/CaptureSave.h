#pragma once

#include <QByteArray>
#include <QString>

#include <expected>
#include <functional>
#include <optional>
#include <vector>

namespace Kovrel {

// The path written, or why nothing was.
using SaveOutcome = std::expected<QString, QString>;

// A save in flight, for those who must see its end: the card, the command line, quitting. Main thread.
class CaptureSave {
public:
    // Called at once when the save is over already.
    void whenDone(std::function<void(const SaveOutcome&)> callback)
    {
        if (m_outcome)
            callback(*m_outcome);
        else
            m_callbacks.push_back(std::move(callback));
    }

    void finish(SaveOutcome outcome)
    {
        m_outcome = std::move(outcome);
        for (const auto& callback : std::exchange(m_callbacks, {}))
            callback(*m_outcome);
    }

    bool isDone() const { return m_outcome.has_value(); }

private:
    std::optional<SaveOutcome> m_outcome;
    std::vector<std::function<void(const SaveOutcome&)>> m_callbacks;
};

} // namespace Kovrel
