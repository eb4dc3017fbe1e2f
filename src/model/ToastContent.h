#pragma once

#include <QColor>
#include <QImage>
#include <QString>

#include <functional>
#include <optional>

namespace Kovrel {

// What one toast shows.
struct ToastContent {
    QString message;
    std::optional<QString> subtitle;
    QString icon = "checkmark"; // symbol name
    std::optional<QColor> iconTint;
    bool showsSpinner = false; // progress: never dismisses itself and never plays a sound
    bool copied = false;       // reports a copy to the clipboard
    std::optional<QImage> image;
    std::function<void()> onTap;
    std::function<void()> onClose; // by its button
    std::optional<double> dwell;   // seconds, instead of the usual linger
};

} // namespace Kovrel
