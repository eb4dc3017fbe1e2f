#pragma once

#include <array>

namespace Kovrel {

// What can be done with a pin, in the order of its menu.
enum class PinQuickAction { edit, copyImage, save, actualSize, unpin, close };

inline constexpr std::array allPinQuickActions{PinQuickAction::edit,  PinQuickAction::copyImage,
                                               PinQuickAction::save,  PinQuickAction::actualSize,
                                               PinQuickAction::unpin, PinQuickAction::close};

} // namespace Kovrel
