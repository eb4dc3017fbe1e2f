#pragma once

#include <array>

namespace Kovrel {

// What can be done with a card, in the order of its menu.
enum class CardQuickAction {
    copy,
    save,
    edit,
    pin,
    rotateLeft,
    rotateRight,
    quickLook,
    showInFinder,
    openWith,
    openInMail,
    temporarilyHide,
    close,
    closeAll,
};

inline constexpr std::array allCardQuickActions{
    CardQuickAction::copy,
    CardQuickAction::save,
    CardQuickAction::edit,
    CardQuickAction::pin,
    CardQuickAction::rotateLeft,
    CardQuickAction::rotateRight,
    CardQuickAction::quickLook,
    CardQuickAction::showInFinder,
    CardQuickAction::openWith,
    CardQuickAction::openInMail,
    CardQuickAction::temporarilyHide,
    CardQuickAction::close,
    CardQuickAction::closeAll,
};

} // namespace Kovrel
