#pragma once

#include "editor/session/EditorSession.h"
#include "editorwindow/EditorServices.h"
#include "platform/Scope.h"

#include <QCoreApplication>

namespace Kovrel {

class AnnotationCanvasView;

// Has made, in the background, what the canvas needs besides the capture, once it needs it: the capture blurred and
// pixelated, its edges, and a backdrop's picture of the user's own. Main thread.
class CanvasSources {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::CanvasSources)

public:
    // All of them outlive it.
    CanvasSources(EditorServices& services, EditorSession& session, AnnotationCanvasView& canvas);

    void follow();

private:
    QCoro::Task<> makeRedactions();
    QCoro::Task<> findEdges();
    QCoro::Task<> readPicture(BackdropFill fill);

    EditorServices& m_services;
    EditorSession& m_session;
    AnnotationCanvasView& m_canvas;
    bool m_hasRedactions = false;
    bool m_hasEdges = false;
    QString m_picture; // the path of the one that was asked for
    Scope m_scope;
};

} // namespace Kovrel
