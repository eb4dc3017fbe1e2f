#include "editorwindow/EditorToasts.h"

#include "ports/Toasts.h"

namespace Kovrel {

void EditorToasts::warn(const Ports& ports, const QString& message, const std::optional<QString>& subtitle)
{
    ports.toasts.tell(&Toasts::present,
                      ToastContent{.message = message, .subtitle = subtitle, .icon = "exclamationmark.triangle"},
                      std::nullopt, false);
}

void EditorToasts::sayCopied(const Ports& ports, const QString& message)
{
    ports.toasts.tell(&Toasts::present, ToastContent{.message = message, .copied = true}, std::nullopt, true);
}

} // namespace Kovrel
