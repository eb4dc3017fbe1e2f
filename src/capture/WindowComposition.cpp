#include "capture/WindowComposition.h"

#include "ports/CaptureTrace.h"
#include "preferences/Preferences.h"

namespace Kovrel {

WindowComposition::WindowComposition(CaptureServices& services)
    : m_services(services), m_scope(services.loop, services.workers)
{
}

WindowComposition::Wallpaper WindowComposition::fetch(quint32 displayID, int maxPixelSize)
{
    return m_scope.reply<std::optional<QImage>>(
        [&](auto done) { m_services.backdrop.captureWallpaper(displayID, maxPixelSize, done); });
}

void WindowComposition::prewarm(const Display& display)
{
    if (m_prewarm || m_services.preferences.get(Settings::windowBackdropStyle) != WindowBackdropStyle::wallpaper)
        return;
    m_prewarmedDisplayID = display.id;
    m_prewarm = fetch(display.id, std::max(display.pixelRect.width(), display.pixelRect.height()));
}

void WindowComposition::forgetPrewarm()
{
    m_prewarm.reset();
}

QCoro::Task<ComposedCapture> WindowComposition::compose(QImage window, std::optional<quint32> displayID)
{
    const WindowBackdropStyle style = m_services.preferences.get(Settings::windowBackdropStyle);
    auto pending = std::exchange(m_prewarm, std::nullopt);
    std::optional<QImage> wallpaper;
    if (style == WindowBackdropStyle::wallpaper && displayID) {
        const bool isHit = pending && m_prewarmedDisplayID == displayID;
        if (!isHit)
            pending = fetch(*displayID, std::max(window.width(), window.height()));
        wallpaper = co_await *pending;
        m_services.trace.mark(QString("t4b wallpaper ready (prewarm %1)").arg(isHit ? "HIT" : "MISS"));
    }
    ComposedCapture composed = co_await m_scope.reply<ComposedCapture>(
        [&](auto done) { m_services.backdrop.compose(window, style, wallpaper, done); });
    co_return composed;
}

} // namespace Kovrel
