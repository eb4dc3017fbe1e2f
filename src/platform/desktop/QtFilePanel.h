#pragma once

#include "platform/FilePanel.h"

namespace Kovrel {

// The toolkit's file dialog, which is the desktop's own where that has one. Does not stop the rest of the program.
class QtFilePanel : public FilePanel {
public:
    void ask(const QString& suggestedPath, QWindow* parent, Reply<std::optional<QString>> reply) override;
    void askForFolder(const QString& path, QWindow* parent, Reply<std::optional<QString>> reply) override;
    void askForFile(const QString& kind, QWindow* parent, Reply<std::optional<QString>> reply) override;
};

} // namespace Kovrel
