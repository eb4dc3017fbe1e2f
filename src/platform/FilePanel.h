#pragma once

#include "platform/Reply.h"

#include <QString>
#include <QWindow>

#include <optional>

namespace Kovrel {

// Asks the user for files and folders. Answers are absolute paths, or nothing when cancelled; `parent` may be null.
class FilePanel {
public:
    virtual ~FilePanel() = default;

    // For the name of a file to be written. `suggestedPath` is absolute.
    virtual void ask(const QString& suggestedPath, QWindow* parent, Reply<std::optional<QString>> reply) = 0;
    // For a folder. It begins at `path`, which need not be there.
    virtual void askForFolder(const QString& path, QWindow* parent, Reply<std::optional<QString>> reply) = 0;
    // For a file to be read. `kind` names those that make sense, as "Settings (*.json)".
    virtual void askForFile(const QString& kind, QWindow* parent, Reply<std::optional<QString>> reply) = 0;
};

} // namespace Kovrel
