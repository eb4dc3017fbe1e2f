#pragma once

#include "model/ToastContent.h"
#include "ports/CaptureChrome.h"

namespace Kovrel {

// The small floating confirmations, one at a time. Main thread.
class Toasts : public CaptureChrome {
public:
    // A new one in place of the one that shows. No display: the first one. `sound`: if the user wants toasts heard.
    virtual void present(ToastContent content, std::optional<quint32> displayID, bool sound) = 0;
    // Changes the one that shows; without one, presents it where the last one was.
    virtual void update(ToastContent content, bool sound) = 0;
    // Confirms a file that was saved.
    virtual void showSaved(const QString& path, std::optional<quint32> displayID) = 0;
    // Goes away after these seconds, or after its own linger.
    virtual void armCountdown(std::optional<double> seconds) = 0;
    virtual void dismiss(bool animated) = 0;
};

} // namespace Kovrel
