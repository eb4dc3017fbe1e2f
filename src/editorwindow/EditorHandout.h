#pragma once

#include "editorwindow/EditorKeeping.h"
#include "saving/DragFiles.h"
#include "saving/EncodedPng.h"

#include <QPointer>

class QWidget;
class QWindow;

namespace Kovrel {

// The picture of an editor, as it looks now, on its way to other programs: dragged out, copied as a file, or printed.
// It is made in the background. Main thread.
class EditorHandout {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::EditorHandout)

public:
    // All of them outlive it.
    EditorHandout(EditorServices& services, EditorSession& session, EditorKeeping& keeping);

    // What may be dragged in a moment is made.
    void prepareDrag();
    // Drags what was prepared, once it is there and while the button is held. Events are handled meanwhile.
    void drag(QWidget& handle);

    void copyAsFile();
    // `parent`: above which the user is asked how.
    void print(const QString& title, QWindow* parent);

private:
    struct Made {
        std::optional<QString> file; // the one that there is, else a short-lived one
        std::shared_ptr<EncodedPng> png;
        QImage face; // small
    };

    QCoro::Task<std::optional<QString>> find();
    QCoro::Task<Made> make();
    QCoro::Task<> prepare(quint64 round);
    QCoro::Task<> copyWhenMade();
    QCoro::Task<> printWhenMade(QString title, QPointer<QWindow> parent);
    void runDrag();
    SaveSettings settings() const;

    EditorServices& m_services;
    EditorSession& m_session;
    EditorKeeping& m_keeping;
    DragFiles m_files;
    std::optional<std::pair<EditorDocument, QString>> m_written; // the last short-lived file, and what it shows
    quint64 m_round = 0;                                         // of what is prepared
    std::optional<Made> m_made;                                  // for the drag
    QPointer<QWidget> m_handle;                                  // is dragged, while what it drags is not made yet
    Scope m_scope;
};

} // namespace Kovrel
