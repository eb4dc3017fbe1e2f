#pragma once

#include "editor/document/EditorCapture.h"
#include "editor/document/EditorDocument.h"
#include "platform/Reply.h"

#include <QString>

#include <expected>

namespace Kovrel {

// Where editors find captures with what was made of them before, and put them back. Main thread.
class EditedCaptures {
public:
    struct Opened {
        EditorCapture capture;
        EditorDocument document;
        std::optional<QString> savedPath; // the user's own file of it
    };

    struct Edit {
        EditorCapture capture; // as it was opened; without its pixels where they are the same
        EditorDocument document;
        QImage flattened; // as it looks now
        std::optional<QString> savedPath;
    };

    virtual ~EditedCaptures() = default;

    // It is there, or about to be.
    virtual bool has(QUuid id) const = 0;
    // Whether others than those it has may be added.
    virtual bool takesNew() const = 0;
    // The capture that the user's file at this path shows, as far as files tell; nothing for other pictures.
    virtual void idOf(QString path, Reply<std::optional<QUuid>> reply) = 0;
    // A picture that the user has at this path.
    virtual void add(EditorCapture capture, QString path) = 0;
    // With all that was made of it, at once and for good.
    virtual void remove(QUuid id) = 0;
    // Nothing where it is not there any more.
    virtual void open(QUuid id, Reply<std::optional<Opened>> reply) = 0;
    // Done once the disk has it; else the reason in one line.
    virtual void keep(Edit edit, Reply<std::expected<void, QString>> reply) = 0;
};

} // namespace Kovrel
