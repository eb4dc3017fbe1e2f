#include "editor/document/UndoHistory.h"

namespace Kovrel {

void UndoHistory::record(const EditorDocument& before, const EditorDocument& after, const QString& key)
{
    const bool isGoingOn = !key.isEmpty() && key == m_openKey && canUndo() && !canRedo();
    const bool isStep = isGoingOn ? merge(before, after) : push({before, after});
    // Without one, the step before is somebody else's.
    m_openKey = isStep ? key : QString();
}

// From where the last step began. What comes back to there was nothing.
bool UndoHistory::merge(const EditorDocument& before, const EditorDocument& after)
{
    const EditorDocument start = m_steps.back().takenBack(before);
    m_steps.pop_back();
    --m_done;
    return push({start, after});
}

bool UndoHistory::push(DocumentChange change)
{
    if (change.isEmpty())
        return false;
    m_steps.resize(m_done);
    m_steps.push_back(std::move(change));
    if (m_steps.size() > mostSteps)
        m_steps.pop_front();
    m_done = m_steps.size();
    return true;
}

EditorDocument UndoHistory::undone(EditorDocument document)
{
    seal();
    return m_steps[--m_done].takenBack(std::move(document));
}

EditorDocument UndoHistory::redone(EditorDocument document)
{
    seal();
    return m_steps[m_done++].applied(std::move(document));
}

} // namespace Kovrel
