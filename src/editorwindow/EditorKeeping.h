#pragma once

#include "editor/document/EditedCaptures.h"
#include "editor/session/EditorSession.h"
#include "editorwindow/EditorServices.h"
#include "model/CaptureResult.h"
#include "platform/Lifeline.h"
#include "platform/MainLoop.h"
#include "platform/Scope.h"
#include "ports/CaptureSave.h"

#include <QCoreApplication>

namespace Kovrel {

// Keeps what is made of a capture, or of a file: notes it in the history while it is edited, and when the editor is
// closed; renders it for files and the clipboard, in the background. It outlives its window until that is done. A file
// comes into the history once something is made of it, and is written only when its user says so. Main thread.
class EditorKeeping {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::EditorKeeping)

public:
    using Kept = std::expected<void, QString>;

    enum class Kind { capture, file };

    // What a crash may cost.
    static constexpr MainLoop::Milliseconds notingInterval{4000};

    EditorKeeping(EditorServices& services, EditorSession& session, std::optional<QString> savedPath, Kind kind);
    ~EditorKeeping();
    EditorKeeping(const EditorKeeping&) = delete;
    EditorKeeping& operator=(const EditorKeeping&) = delete;

    // Whether the history takes what is made of it.
    bool isKept() const;

    // What the file does not have yet, or, for a capture, the history.
    bool isChanged() const;

    // Something was made of it here, or was and may have been noted.
    bool isToBeKept() const { return m_isKeeping || !isNoted() || m_session.document() != m_opened; }

    const std::optional<QString>& savedPath() const { return m_savedPath; }

    // As it looks now; null where memory is short.
    void render(Reply<QImage> reply);
    // A file that looks as it does now; nothing where there is none yet.
    void file(Reply<std::optional<QString>> reply) const;

    // Back to what the file has, or to what there was.
    void revert() { m_session.change(m_inFile); }

    // The crop is carried out; nothing can be edited after this.
    void keepForGood(Reply<Kept> reply);
    // Into the file that it has, else the save folder, or to `path`. Null when the picture can't be made.
    void save(std::optional<QString> path, std::function<void(const SaveOutcome&)> done);
    // As a file of its own in the save folder.
    void saveCopy(std::function<void(const SaveOutcome&)> done);
    void copy(std::function<void()> done);

private:
    bool isNoted() const { return m_session.document() == m_inHistory; }

    void note();
    void noteSoon();
    void add();
    void saved(const EditorDocument& document, const QString& path);
    void write(std::optional<QString> path, std::function<void(const SaveOutcome&)> done);
    CaptureResult resultOf(QImage picture) const;
    QCoro::Task<> keep(EditorDocument document, bool isForGood, Reply<Kept> reply);
    QCoro::Task<> renderInBackground(Reply<QImage> reply);

    EditorServices& m_services;
    EditorSession& m_session;
    std::optional<QString> m_savedPath;
    const Kind m_kind;
    bool m_isToBeAdded; // a file of which the history knows nothing
    bool m_isAdded = false;
    const EditorDocument m_opened; // as it was
    std::optional<EditorDocument> m_inHistory;
    EditorDocument m_inFile;
    MainLoop::TimerID m_timer = 0;
    bool m_isKeeping = false;
    Subscription m_changes;
    Lifeline m_lifeline;
    Scope m_scope;
};

} // namespace Kovrel
