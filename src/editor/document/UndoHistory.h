#pragma once

#include "editor/document/DocumentChange.h"

#include <QString>

#include <deque>

namespace Kovrel {

// The steps that were done to a document, and can be taken back and done again.
class UndoHistory {
public:
    // More are not gone back; the oldest are forgotten.
    static constexpr size_t mostSteps = 1000;

    // A step from `before` to `after`; nothing where both are the same. Steps with the same key that follow each other
    // are one, until `seal`: what was dragged at a slider, typed, or moved by arrow keys.
    void record(const EditorDocument& before, const EditorDocument& after, const QString& key = {});

    // What comes next is a step of its own.
    void seal() { m_openKey.clear(); }

    bool canUndo() const { return m_done > 0; }

    bool canRedo() const { return m_done < m_steps.size(); }

    // Only where it can. `document` is as the last step has left it.
    EditorDocument undone(EditorDocument document);
    EditorDocument redone(EditorDocument document);

private:
    // Whether there was a step.
    bool merge(const EditorDocument& before, const EditorDocument& after);
    bool push(DocumentChange change);

    std::deque<DocumentChange> m_steps;
    size_t m_done = 0;
    QString m_openKey; // of the last step, while it can grow
};

} // namespace Kovrel
