#pragma once

#include "editor/document/EditorCapture.h"
#include "editor/document/UndoHistory.h"
#include "editor/session/ToolStyles.h"
#include "platform/Observers.h"

namespace Kovrel {

// One capture that is being edited, without a window: what it looks like, what is selected, the tool in hand, and what
// commands do to it. Main thread.
class EditorSession {
public:
    EditorSession(EditorCapture capture, EditorDocument document, Preferences& preferences);

    const EditorCapture& capture() const { return m_capture; }

    const EditorDocument& document() const { return m_document; }

    // Told of each change of the document, the selection, the tool or its style.
    Subscription onChange(std::function<void()> observer) { return m_observers.add(std::move(observer)); }

    // --- Steps. Steps of one key that follow each other are one.

    void change(EditorDocument next, const QString& key = {});
    // Shows what a gesture makes, which is no step before it is kept.
    void preview(EditorDocument next);
    void keepPreview();
    void dropPreview();

    bool canUndo() const { return m_undo.canUndo(); }

    bool canRedo() const { return m_undo.canRedo(); }

    void undo();
    void redo();

    // What comes next is a step of its own.
    void seal() { m_undo.seal(); }

    // --- What is selected, in the order of the marks

    const std::vector<QUuid>& selection() const { return m_selection; }

    bool isSelected(QUuid id) const;
    void select(std::vector<QUuid> ids);
    void selectAll();
    std::vector<Annotation> selectedMarks() const;

    // --- The tool and its style

    EditorTool tool() const { return m_tool; }

    // Remembered for the next editor, and one that redacts for what is redacted otherwise. What is selected stays so
    // for a tool of the same marks.
    void setTool(EditorTool tool);
    // What all selected marks have in common, or, with nothing selected, what the tool's next mark will have.
    MarkStyle style() const;
    // For what is selected, and for the tool that makes such marks.
    void setStyle(const MarkStyle& style);

    MarkStyle toolStyle(EditorTool tool) const { return m_styles.of(tool); }

    // --- Commands for what is selected

    enum class Layer { front, forward, backward, back };

    void moveBy(Size shift, const QString& key);
    // The numbers of later steps follow.
    void removeSelected();
    void duplicateSelected();
    void bring(Layer layer);
    // Marks of this or another capture, as new ones, selected; steps go on with the numbers that are there.
    void paste(std::vector<Annotation> marks, Size shift);

    // The number for the next step.
    qint64 nextStepNumber() const;

private:
    void setDocument(EditorDocument next);
    void changeSelected(const std::function<Annotation(Annotation)>& change, const QString& key);

    const EditorCapture m_capture;
    EditorDocument m_document;
    std::optional<EditorDocument> m_beforePreview;
    UndoHistory m_undo;
    std::vector<QUuid> m_selection;
    EditorTool m_tool;
    Preferences& m_preferences;
    ToolStyles m_styles;
    Observers<> m_observers;
};

} // namespace Kovrel
