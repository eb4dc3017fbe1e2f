#pragma once

#include "platform/ShortcutSwitches.h"

namespace Kovrel {

// KDE's service of global shortcuts, asked for those of the desktop's own screenshot tool. An accelerator is the number
// of Qt's key code with its modifiers.
class KdeShortcuts : public ShortcutSwitches {
public:
    std::vector<Shortcut> shortcuts() override;
    bool set(const Shortcut& shortcut) override;
    std::optional<KeyCombo> combo(const QString& accelerator) const override;
};

} // namespace Kovrel
