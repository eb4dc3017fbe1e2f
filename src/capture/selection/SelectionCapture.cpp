#include "capture/selection/SelectionCapture.h"

#include "platform/Guarded.h"

#include <QPainter>

#include <algorithm>

namespace Kovrel {

namespace {

// Windows that go by themselves, as when they lose the pointer to the overlay.
bool isFleeting(const WindowInfo& window)
{
    return window.type == WindowType::menu || window.type == WindowType::tooltip || window.type == WindowType::other;
}

void makeOpaque(QImage& image)
{
    auto* pixel = reinterpret_cast<QRgb*>(image.bits());
    std::for_each(pixel, pixel + image.sizeInBytes() / 4, [](QRgb& value) { value |= 0xff000000; });
}

QRect unitedRect(const std::vector<WindowInfo>& windows)
{
    QRect united;
    for (const WindowInfo& window : windows)
        united |= window.pixelRect;
    return united;
}

} // namespace

SelectionCapture::SelectionCapture(MainLoop& loop, Workers& workers, Windows& windows)
    : m_windows(windows), m_scope(loop, workers)
{
}

std::optional<QImage> SelectionCapture::cut(const QRect& rootPixels, const FrozenScreens& frozen)
{
    QImage image(rootPixels.size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    bool isOnScreen = false;
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const FrozenScreen& screen : frozen) {
        const QRect part = screen.pixelRect & rootPixels;
        if (part.isEmpty())
            continue;
        painter.drawImage(part.topLeft() - rootPixels.topLeft(), screen.image,
                          part.translated(-screen.pixelRect.topLeft()));
        isOnScreen = true;
    }
    painter.end();
    makeOpaque(image);
    return isOnScreen ? std::optional(image) : std::nullopt;
}

void SelectionCapture::grab(QRect rootPixels, FrozenScreens frozen, Reply<std::optional<QImage>> reply)
{
    Scope::start(takeArea(rootPixels, std::move(frozen), std::move(reply)), "Cutting out the selection");
}

QCoro::Task<> SelectionCapture::takeArea(QRect rootPixels, FrozenScreens frozen, Reply<Picture> reply)
{
    const auto job = Guarded::orElse([rootPixels, frozen] { return cut(rootPixels, frozen); }, std::nullopt);
    Picture picture = co_await m_scope.onWorker(Lane::capture, job);
    reply(std::move(picture));
}

void SelectionCapture::grabWindows(std::vector<WindowInfo> windows, FrozenScreens frozen,
                                   Reply<std::optional<QImage>> reply)
{
    Scope::start(takeWindows(std::move(windows), std::move(frozen), std::move(reply)), "Taking the picked windows");
}

QCoro::Task<> SelectionCapture::takeWindows(std::vector<WindowInfo> windows, FrozenScreens frozen, Reply<Picture> reply)
{
    std::vector<QImage> pictures;
    for (const WindowInfo& window : windows) {
        Picture picture = co_await pictureOf(window, frozen);
        if (!picture) {
            reply(std::nullopt);
            co_return;
        }
        pictures.push_back(*std::move(picture));
    }
    if (pictures.size() == 1) {
        reply(std::move(pictures.front()));
        co_return;
    }
    const QRect whole = unitedRect(windows);
    QImage group(whole.size(), QImage::Format_ARGB32_Premultiplied);
    group.fill(Qt::transparent);
    QPainter painter(&group);
    for (size_t index = windows.size(); index-- > 0;)
        painter.drawImage(windows[index].pixelRect.topLeft() - whole.topLeft(), pictures[index]);
    painter.end();
    reply(std::move(group));
}

QCoro::Task<std::optional<QImage>> SelectionCapture::pictureOf(WindowInfo window, FrozenScreens frozen)
{
    GrabbedImage grabbed = co_await m_scope.reply<GrabbedImage>([&](auto done) { m_windows.grab(window.id, done); });
    if (grabbed)
        co_return *std::move(grabbed);
    if (isFleeting(window))
        co_return cut(window.pixelRect, frozen);
    co_return std::nullopt;
}

} // namespace Kovrel
