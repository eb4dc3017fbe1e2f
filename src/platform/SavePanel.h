#pragma once

#include "platform/Reply.h"

#include <QString>
#include <QWindow>

#include <optional>

namespace Kovrel {

// Asks the user for a file name.
class SavePanel {
public:
    virtual ~SavePanel() = default;

    // `suggestedPath` is absolute; `parent` may be null. The answer is an absolute path, or nothing when cancelled.
    virtual void ask(const QString& suggestedPath, QWindow* parent, Reply<std::optional<QString>> reply) = 0;
};

} // namespace Kovrel
