#pragma once

#include "platform/SavePanel.h"

namespace Kovrel {

// The toolkit's file dialog, which is the desktop's own where that has one. Does not stop the rest of the program.
class QtSavePanel : public SavePanel {
public:
    void ask(const QString& suggestedPath, QWindow* parent, Reply<std::optional<QString>> reply) override;
};

} // namespace Kovrel
