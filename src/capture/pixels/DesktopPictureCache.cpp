#include "capture/pixels/DesktopPictureCache.h"

namespace Kovrel {

DesktopPictureCache::DesktopPictureCache(MainLoop& loop, Workers& workers, DesktopPicture& desktop, Displays& displays)
    : m_loop(loop),
      m_desktop(desktop),
      m_displayChanges(displays.onChange([this] { forgetAll(); })),
      m_scope(loop, workers)
{
}

std::optional<QImage> DesktopPictureCache::cachedWallpaper(const DesktopKey& key) const
{
    const auto found = m_pictures.find(key);
    return found == m_pictures.end() ? std::nullopt : Picture(found->second);
}

void DesktopPictureCache::captureWallpaper(DesktopKey key, Reply<Picture> reply)
{
    if (const Picture cached = cachedWallpaper(key)) {
        m_loop.post([reply, cached] { reply(cached); });
        return;
    }
    auto& waiting = m_desktopInFlight[key];
    waiting.push_back(std::move(reply));
    if (waiting.size() == 1)
        Scope::start(captureWallpaperUncached(key), "The desktop picture");
}

QCoro::Task<> DesktopPictureCache::captureWallpaperUncached(DesktopKey key)
{
    const quint64 displayGeneration = m_displayGeneration;
    Picture picture =
        co_await m_scope.reply<Picture>([&](auto done) { m_desktop.grab(key.displayID, key.maxPixelSize, done); });
    const auto waiting = m_desktopInFlight.extract(key);
    if (picture && displayGeneration == m_displayGeneration)
        m_pictures[key] = *picture;
    for (const Reply<Picture>& reply : waiting.mapped())
        reply(picture);
    picture.reset();
    co_await m_scope.sleep(shelfLife);
    m_pictures.erase(key);
}

void DesktopPictureCache::forgetAll()
{
    ++m_displayGeneration;
    m_pictures.clear();
}

} // namespace Kovrel
