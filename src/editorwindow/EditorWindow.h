#pragma once

#include "editorwindow/CaptureLines.h"
#include "editorwindow/EditorKeeping.h"
#include "editorwindow/canvas/AnnotationCanvasView.h"
#include "ui/AppWindow.h"

class QLabel;

namespace Kovrel {

class StylePanel;
class SymbolButton;
class ToolPalette;

// The editor of one capture. Closing it keeps what was made, in the history or, for a file, as the user says.
// Main thread.
class EditorWindow : public AppWindow {
    Q_OBJECT

public:
    enum class Kind { capture, file };

    // `title`: of the window.
    EditorWindow(EditorServices& services, EditedCaptures::Opened opened, Kind kind, const QString& title);

    EditorSession& session() { return m_session; }

    EditorKeeping& keeping() { return m_keeping; }

    AnnotationCanvasView& canvas() { return *m_canvas; }

    // Whether the history takes what is made of it; else its user is asked.
    bool isKeptInHistory() const;

Q_SIGNALS:
    // It is hidden; whoever owns it keeps what was made and lets it go.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeTopBar();
    SymbolButton* makeButton(const QString& symbol, const QString& name, void (EditorWindow::*action)());
    void addKeys(const QKeySequence& keys, std::function<void()> action);
    void addCommands();
    void follow();
    QCoro::Task<> prepareRedactions();
    void escape();
    void undo();
    void redo();
    void copy();
    void paste();
    void save();
    void saveAs();
    void tellSaved(const SaveOutcome& outcome);
    void showMenu(QPoint globalPosition);
    void askToSave();
    void discard();

    EditorServices& m_services;
    Kind m_kind;
    EditorSession m_session;
    EditorKeeping m_keeping;
    CaptureLines m_lines;
    AnnotationCanvasView* m_canvas;
    ToolPalette* m_tools;
    StylePanel* m_style;
    SymbolButton* m_undo;
    SymbolButton* m_redo;
    QLabel* m_zoom;
    bool m_hasRedactions = false;
    Subscription m_changes;
    Scope m_scope;
};

} // namespace Kovrel
