#pragma once

#include "platform/DesktopPicture.h"
#include "platform/Displays.h"
#include "platform/Scope.h"

#include <compare>
#include <map>

namespace Kovrel {

// A desktop picture is kept for one display and size.
struct DesktopKey {
    quint32 displayID = 0;
    int maxPixelSize = 0;
    auto operator<=>(const DesktopKey&) const = default;
};

// The desktop pictures of captures in quick succession: each is grabbed once, however many ask meanwhile, and forgotten
// after a few seconds or when a display changes, so that a new wallpaper is seen and nothing is held at rest. Main
// thread, so it needs no locks.
class DesktopPictureCache {
public:
    DesktopPictureCache(MainLoop& loop, Workers& workers, DesktopPicture& desktop, Displays& displays);

    // No value when there is no picture; that is not remembered.
    void captureWallpaper(DesktopKey key, Reply<std::optional<QImage>> reply);
    std::optional<QImage> cachedWallpaper(const DesktopKey& key) const;

    static constexpr MainLoop::Milliseconds shelfLife = std::chrono::seconds(3);

private:
    using Picture = std::optional<QImage>;

    QCoro::Task<> captureWallpaperUncached(DesktopKey key);
    void forgetAll();

    MainLoop& m_loop;
    DesktopPicture& m_desktop;
    quint64 m_displayGeneration = 0;
    std::map<DesktopKey, QImage> m_pictures;
    std::map<DesktopKey, std::vector<Reply<Picture>>> m_desktopInFlight; // who waits for each grab
    Subscription m_displayChanges;
    Scope m_scope;
};

} // namespace Kovrel
