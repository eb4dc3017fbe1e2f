#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// What happens to a card whose time is up.
enum class AutoCloseAction {
    saveAndClose,
    justClose,
};

template <>
struct RawStrings<AutoCloseAction> {
    static constexpr std::array table{
        std::pair{AutoCloseAction::saveAndClose, "saveAndClose"},
        std::pair{AutoCloseAction::justClose, "justClose"},
    };
};

} // namespace Kovrel
