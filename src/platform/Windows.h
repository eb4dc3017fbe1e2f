#pragma once

#include "model/Geometry.h"
#include "model/SourceApp.h"
#include "platform/Reply.h"
#include "platform/ScreenPixels.h"

#include <QRect>

#include <optional>
#include <vector>

namespace Kovrel {

enum class WindowType { normal, dialog, menu, tooltip, dock, desktop, other };

struct WindowInfo {
    quint32 id = 0;      // what `Windows::grab` takes
    qint64 ownerPid = 0; // 0 when unknown
    SourceApp app;
    QString title;
    Rect frame;      // global points, without invisible resize borders
    QRect pixelRect; // the same on the root window
    WindowType type = WindowType::normal;
    bool isOnScreen = false;
};

// The windows of all programs. A desktop may refuse the list or single windows.
class Windows {
public:
    virtual ~Windows() = default;

    // Front to back; no value where the desktop does not tell.
    virtual void list(Reply<std::optional<std::vector<WindowInfo>>> reply) = 0;

    // One window with its decoration and alpha, also where others cover it.
    virtual void grab(quint32 windowID, Reply<GrabbedImage> reply) = 0;
};

} // namespace Kovrel
