#pragma once

#include "model/KeyCombo.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace Kovrel {

// The desktop's own screenshot shortcuts. Calls block on other processes: one worker at a time.
class ShortcutSwitches {
public:
    struct Shortcut {
        QString id;
        QStringList accelerators; // as this desktop writes them; each of them sets it off

        bool operator==(const Shortcut&) const = default;
    };

    virtual ~ShortcutSwitches() = default;

    // Those that this desktop has; none where it doesn't answer.
    virtual std::vector<Shortcut> shortcuts() = 0;
    // False when the desktop refused.
    virtual bool set(const Shortcut& shortcut) = 0;

    // What an accelerator stands for, in every spelling; none when a KeyCombo can't say it. On any thread.
    virtual std::optional<KeyCombo> combo(const QString& accelerator) const = 0;
};

} // namespace Kovrel
