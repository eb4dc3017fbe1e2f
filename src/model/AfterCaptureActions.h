#pragma once

#include <QFlags>

namespace Kovrel {

// What happens after a capture, as the bits that are stored.
enum class AfterCaptureAction {
    showCard = 1,
    copy = 2,
    save = 4,
    openEditor = 8,
    pin = 16,
};
Q_DECLARE_FLAGS(AfterCaptureActions, AfterCaptureAction)
Q_DECLARE_OPERATORS_FOR_FLAGS(AfterCaptureActions)

} // namespace Kovrel
