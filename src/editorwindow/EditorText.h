#pragma once

#include "editorwindow/CaptureLines.h"
#include "editorwindow/EditorLiveText.h"

namespace Kovrel {

class EditorSession;
class FindBar;

// What an editor does with the text in its capture: finds it, lets it be selected, fits highlighters to it. Main
// thread.
class EditorText : public QObject {
    Q_OBJECT

public:
    // All of them outlive it.
    EditorText(EditorServices& services, EditorSession& session, AnnotationCanvasView& canvas);

    // Hidden until something is to be found; whoever lays out the window owns it.
    FindBar& bar() { return *m_bar; }

    void openFind();

    bool isSelecting() const { return m_live.isOn(); }

    // Another tool than selecting ends it.
    void setSelecting(bool isSelecting);

    // The session has changed.
    void follow();

Q_SIGNALS:
    void selectingChanged();

private:
    void closeFind();
    void takeLines();
    void showFound();

    EditorServices& m_services;
    EditorSession& m_session;
    AnnotationCanvasView& m_canvas;
    CaptureLines m_lines;
    EditorLiveText m_live;
    FindBar* m_bar;
    Subscription m_changes;
};

} // namespace Kovrel
