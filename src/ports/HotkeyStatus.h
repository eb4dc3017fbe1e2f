#pragma once

#include "platform/Observers.h"

#include <QStringList>

#include <functional>
#include <optional>

namespace Kovrel {

// How the global hotkeys fare. Main thread.
class HotkeyStatus {
public:
    virtual ~HotkeyStatus() = default;

    // Why the hotkey of this setting can't be had, in one line for people; no value where it can, or is no hotkey.
    virtual std::optional<QString> refusal(const QString& setting) const = 0;
    // Called when that may have changed.
    virtual Subscription onRefusals(std::function<void()> observer) = 0;

    // The chords that the desktop has lent us, as people write them. A change is one of the settings.
    virtual QStringList borrowedKeys() const = 0;
};

} // namespace Kovrel
