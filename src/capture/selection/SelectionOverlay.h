#pragma once

#include "platform/Observers.h"
#include "platform/OverlaySurfaces.h"
#include "platform/Windows.h"

#include <QRect>

#include <functional>
#include <variant>
#include <vector>

namespace Kovrel {

struct SelectedArea {
    QRect rootPixels; // may span displays
};

struct SelectedWindows {
    std::vector<WindowInfo> windows; // front to back; two or more: a tiled group
};

struct SelectionCancelled {
    QString failure =
        {}; // why nothing could be selected, in the words that follow a colon; empty when nobody wanted to
};

using SelectionResult = std::variant<SelectedArea, SelectedWindows, SelectionCancelled>;

// The layer over all displays on which an area is dragged out or a window is picked. Main thread.
class SelectionOverlay {
public:
    enum class Mode { areaDrag, windowPick };

    virtual ~SelectionOverlay() = default;

    // Opens the overlay. The completion is called exactly once, never inside this call, when it has closed.
    virtual void begin(Mode mode, std::function<void(SelectionResult)> completion) = 0;
    // The mode of the session, as the user switches it.
    virtual Subscription onModeChange(std::function<void(Mode)> callback) = 0;
    // Freezes the displays as they look now and shows that, when the user wants frozen screens.
    virtual void applyFrozenImages() = 0;
    // The frozen images of the session that ended, which the overlay then no longer owns. Empty when it was live.
    virtual FrozenScreens takeFrozenImages() = 0;
    // Back to the front, crosshair included.
    virtual void reassertPresence() = 0;
    // Ends the session as cancelled.
    virtual void cancel() = 0;
    virtual bool isCommitting() const = 0;
};

} // namespace Kovrel
