#pragma once

#include "editorwindow/EditorServices.h"
#include "editorwindow/EditorWindow.h"
#include "ports/CaptureEditors.h"

#include <QHash>
#include <QSet>

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
    QCoro::Task<std::optional<EditedCaptures::Opened>> captureOf(QString path);
    QCoro::Task<std::optional<EditedCaptures::Opened>> pictureOf(QString path);
    // Null where none is open.
    QUuid idOf(const QString& path) const;
    void show(EditedCaptures::Opened opened, EditorWindow::Kind kind, const QString& title);
    bool bringForward(QUuid id);
    void keep(EditorWindow* window);
    void kept(EditorWindow* window, const EditorKeeping::Kept& outcome);
    void rescue(EditorWindow* window);
    void ended(EditorWindow* window);

    EditorServices m_services;
    QHash<QUuid, EditorWindow*> m_windows;
    QSet<QString> m_opening; // files that are being read
    int m_pending = 0;
    std::function<void()> m_whenKept;
    Scope m_scope;
};

} // namespace Kovrel
