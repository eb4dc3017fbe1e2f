#pragma once

#include <QString>

#include <optional>

namespace Kovrel {

// How the global hotkeys fare. Main thread.
class HotkeyStatus {
public:
    virtual ~HotkeyStatus() = default;

    // Why the hotkey of this setting can't be had, in one line for people; no value where it can, or is no hotkey.
    virtual std::optional<QString> refusal(const QString& setting) const = 0;
};

} // namespace Kovrel
