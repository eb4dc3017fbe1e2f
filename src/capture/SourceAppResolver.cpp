#include "capture/SourceAppResolver.h"

namespace Kovrel {

namespace {

bool isProgramsWindow(const WindowInfo& window, qint64 ownPid)
{
    const bool isContent = window.type == WindowType::normal || window.type == WindowType::dialog;
    return isContent && window.isOnScreen && window.ownerPid != ownPid && !window.app.name.isEmpty();
}

qint64 pixelCount(const QRect& rect)
{
    return rect.isEmpty() ? 0 : qint64(rect.width()) * rect.height();
}

} // namespace

std::optional<SourceApp> SourceAppResolver::resolve(const std::vector<WindowInfo>& windows, QRect rootPixels,
                                                    qint64 ownPid)
{
    const WindowInfo* largest = nullptr;
    qint64 largestShare = 0;
    for (const WindowInfo& window : windows) {
        if (!isProgramsWindow(window, ownPid))
            continue;
        if (window.pixelRect.contains(rootPixels.center()))
            return window.app;
        const qint64 share = pixelCount(window.pixelRect & rootPixels);
        if (share > largestShare) {
            largest = &window;
            largestShare = share;
        }
    }
    return largest ? std::optional(largest->app) : std::nullopt;
}

} // namespace Kovrel
