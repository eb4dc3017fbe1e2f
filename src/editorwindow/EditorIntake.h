#pragma once

#include "editor/session/EditorSession.h"
#include "editorwindow/EditorServices.h"
#include "editorwindow/IncomingPictures.h"
#include "platform/Scope.h"

#include <QObject>

class QDropEvent;

namespace Kovrel {

class AnnotationCanvasView;

// What comes into an editor from other programs, pasted or dropped on the canvas: marks stay marks, pictures become
// stickers, text goes into the label that is being written. Nobody waits for the program that has copied it, nor for a
// codec. Main thread.
class EditorIntake : public QObject {
    Q_OBJECT

public:
    // All of them outlive it.
    EditorIntake(EditorServices& services, EditorSession& session, AnnotationCanvasView& canvas);

    void paste();

    bool eventFilter(QObject* canvas, QEvent* event) override;

private:
    bool isTaken(const QDropEvent& drag) const;
    void drop(const QDropEvent& drag);
    QCoro::Task<> pasteText();
    QCoro::Task<> pasteMarksOrPictures(Point at);
    QCoro::Task<> add(IncomingPictures incoming, Point at);
    void lay(const std::vector<QImage>& pictures, Point at);
    bool isClosed() const;

    EditorServices& m_services;
    EditorSession& m_session;
    AnnotationCanvasView& m_canvas;
    Scope m_scope;
};

} // namespace Kovrel
