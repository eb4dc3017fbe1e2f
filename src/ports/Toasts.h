#pragma once

#include "model/ToastContent.h"
#include "ports/CaptureChrome.h"

namespace Kovrel {

// The small floating confirmations, one at a time. Main thread.
class Toasts : public CaptureChrome {
public:
    // No display: the first one.
    virtual void present(ToastContent content, std::optional<quint32> displayID, bool sound) = 0;
    virtual void update(ToastContent content, bool sound) = 0;
    virtual void armCountdown(std::optional<double> seconds) = 0;
    virtual void dismiss(bool animated) = 0;
};

} // namespace Kovrel
