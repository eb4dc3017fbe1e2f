#pragma once

#include "platform/ShortcutSwitches.h"

namespace Kovrel {

// One of the desktop's shortcuts that Kovrel took accelerators from.
struct TakenShortcut {
    ShortcutSwitches::Shortcut original;
    QStringList taken; // of the original's accelerators

    // What the desktop has while those are taken.
    QStringList left() const;

    bool operator==(const TakenShortcut&) const = default;
};

// Their stored form, JSON. What can't be read is nothing.
namespace TakenShortcuts {

QByteArray toJson(const std::vector<TakenShortcut>& shortcuts);
std::vector<TakenShortcut> fromJson(const QByteArray& json);

} // namespace TakenShortcuts

} // namespace Kovrel
