#pragma once

#include "editorwindow/CanvasSources.h"
#include "editorwindow/EditorHandout.h"
#include "editorwindow/EditorIntake.h"
#include "editorwindow/EditorKeeping.h"
#include "editorwindow/EditorText.h"
#include "editorwindow/canvas/AnnotationCanvasView.h"
#include "ui/AppWindow.h"

#include <vector>

class QHBoxLayout;

namespace Kovrel {

class BackdropPanel;
class CropBar;
class EditorTopBar;
class ToolPalette;

// The editor of one capture. Closing it keeps what was made, in the history or, for a file, as the user says.
// Main thread.
class EditorWindow : public AppWindow {
    Q_OBJECT

public:
    using Kind = EditorKeeping::Kind;

    // `title`: of the window.
    EditorWindow(EditorServices& services, EditedCaptures::Opened opened, Kind kind, const QString& title);

    EditorSession& session() { return m_session; }

    EditorKeeping& keeping() { return m_keeping; }

    AnnotationCanvasView& canvas() { return *m_canvas; }

Q_SIGNALS:
    // It is hidden; whoever owns it keeps what was made and lets it go.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void arrange();
    void connectParts();
    void addKeys(const QKeySequence& keys, std::function<void()> action);
    void addCommands();
    void follow();
    void escape();
    void undo();
    void redo();
    void copy();
    void copyAsFile();
    void print();
    void save();
    void saveAs();
    void tellSaved(const SaveOutcome& outcome);
    bool isFlattened() const;
    void toggleBackdrop();
    void connectText();
    void toggleSelectingText();
    void showMenu(QPoint globalPosition);
    void askToSave();
    void discard();

    EditorServices& m_services;
    Kind m_kind;
    EditorSession m_session;
    EditorKeeping m_keeping;
    AnnotationCanvasView* m_canvas;
    EditorText m_text;
    CanvasSources m_sources;
    EditorIntake m_intake;
    EditorHandout m_handout;
    EditorTopBar* m_top;
    ToolPalette* m_tools;
    QHBoxLayout* m_middle;               // what stands beside the canvas
    BackdropPanel* m_backdrop = nullptr; // made when it is opened first
    CropBar* m_crop;
    std::vector<Subscription> m_changes;
};

} // namespace Kovrel
