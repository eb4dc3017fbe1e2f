#pragma once

#include "capture/selection/SelectionGrabber.h"
#include "platform/MainLoop.h"
#include "platform/Scope.h"
#include "platform/Workers.h"

namespace Kovrel {

// Cuts areas out of frozen screens and takes picked windows. Pixels are copied on the capture lane. Main thread.
class SelectionCapture : public SelectionGrabber {
public:
    SelectionCapture(MainLoop& loop, Workers& workers, Windows& windows);

    void prewarm() override {}

    void grab(QRect rootPixels, FrozenScreens frozen, Reply<std::optional<QImage>> reply) override;
    void grabWindows(std::vector<WindowInfo> windows, FrozenScreens frozen,
                     Reply<std::optional<QImage>> reply) override;

    // The rectangle of root pixels out of the screens' images: where no screen is, it is black. No value when none
    // of it lies on any of them.
    static std::optional<QImage> cut(const QRect& rootPixels, const FrozenScreens& frozen);

private:
    using Picture = std::optional<QImage>;

    QCoro::Task<> takeArea(QRect rootPixels, FrozenScreens frozen, Reply<Picture> reply);
    QCoro::Task<> takeWindows(std::vector<WindowInfo> windows, FrozenScreens frozen, Reply<Picture> reply);
    QCoro::Task<Picture> pictureOf(WindowInfo window, FrozenScreens frozen);

    Windows& m_windows;
    Scope m_scope;
};

} // namespace Kovrel
