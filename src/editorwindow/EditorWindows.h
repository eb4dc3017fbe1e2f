#pragma once

#include "editorwindow/EditorServices.h"
#include "editorwindow/EditorWindow.h"
#include "ports/CaptureEditors.h"

#include <QHash>

#include <chrono>

namespace Kovrel {

// All editors: one for each capture and each file. Main thread.
class EditorWindows : public QObject, public CaptureEditors {
    Q_OBJECT

public:
    explicit EditorWindows(EditorServices services);
    ~EditorWindows() override;

    void open(CaptureResult result) override;
    void openFiles(const QStringList& paths) override;

    // Keeps what is being edited; calls back when the disk has it, or at the deadline.
    void finishPending(std::chrono::milliseconds deadline, std::function<void()> done);

private:
    QCoro::Task<> openCapture(CaptureResult result);
    QCoro::Task<> openFile(QString path);
    void show(EditedCaptures::Opened opened, EditorWindow::Kind kind, const QString& title);
    bool bringForward(QUuid id);
    void keep(EditorWindow* window);
    void kept(EditorWindow* window, const EditorKeeping::Kept& outcome);
    void rescue(EditorWindow* window);
    void ended(EditorWindow* window);

    EditorServices m_services;
    QHash<QUuid, EditorWindow*> m_windows;
    QHash<QString, QUuid> m_files; // by their paths
    int m_pending = 0;
    std::function<void()> m_whenKept;
    Scope m_scope;
};

} // namespace Kovrel
