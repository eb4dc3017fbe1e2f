#pragma once

#include "ports/Ports.h"

#include <QString>

#include <optional>

namespace Kovrel {

// What editors say in toasts. Main thread.
namespace EditorToasts {

void warn(const Ports& ports, const QString& message, const std::optional<QString>& subtitle = {});
// Something is on the clipboard.
void sayCopied(const Ports& ports, const QString& message);

} // namespace EditorToasts

} // namespace Kovrel
