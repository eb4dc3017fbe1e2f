#include "screencapture/ScreenshotTool.h"

#include "platform/DisplayScales.h"
#include "platform/ImageCodec.h"
#include "platform/x11/X11Displays.h"
#include "platform/x11/X11Screen.h"
#include "platform/x11/X11WindowImage.h"
#include "platform/x11/X11WindowPicker.h"

#include <QFile>
#include <QSaveFile>

namespace Kovrel {

using ScreenshotTool::Exit;
using ScreenshotTool::Outcome;

namespace {

using Pixels = std::expected<QImage, Outcome>;

QString reason(GrabFailure failure)
{
    switch (failure) {
    case GrabFailure::noDisplay:
        return "nothing of it is on a display";
    case GrabFailure::refused:
        return "the desktop does not give its pixels";
    case GrabFailure::windowGone:
        return "there is no such window on the screen";
    case GrabFailure::notSupported:
        return "the display server can't do that";
    }
    return {};
}

Pixels orReason(GrabbedImage image)
{
    if (!image)
        return std::unexpected(Outcome{Exit::failed, reason(image.error())});
    return *std::move(image);
}

Pixels grabWindow(const std::shared_ptr<X11ImageReader>& reader, xcb_window_t window)
{
    return orReason(X11WindowImage::grab(*reader, window));
}

Pixels grabPicked(const std::shared_ptr<X11ImageReader>& reader)
{
    const auto window = X11WindowPicker(reader->connection()).pick();
    if (window)
        return grabWindow(reader, *window);
    if (window.error() == X11WindowPicker::Failure::cancelled)
        return std::unexpected(Outcome{Exit::cancelled, "cancelled"});
    return std::unexpected(Outcome{Exit::failed, "another program holds the keyboard or the pointer"});
}

Pixels grabScreen(const std::shared_ptr<X11ImageReader>& reader, const ToolOptions& options, const QString& scales)
{
    const DisplayList displays = X11Displays::read(reader->connection(), DisplayScales::read(scales));
    if (displays.empty())
        return std::unexpected(Outcome{Exit::failed, "there is no display"});
    const QRect pixels =
        options.rect ? rootPixels(displays, flipped(displays, *options.rect)) : displays.front().pixelRect;
    return orReason(X11Screen(reader).grab(pixels, options.drawsPointer ? ScreenPixels::PointerOption::drawn
                                                                        : ScreenPixels::PointerOption::without));
}

Pixels grab(const ToolOptions& options, const QByteArray& displayName, const QString& scales)
{
    const auto connection = std::make_shared<X11Connection>(displayName);
    if (!connection->isAlive())
        return std::unexpected(Outcome{Exit::failed, "there is no display server"});
    const auto reader = std::make_shared<X11ImageReader>(connection);
    if (options.window)
        return grabWindow(reader, *options.window);
    return options.picksWindow ? grabPicked(reader) : grabScreen(reader, options, scales);
}

Outcome write(const QByteArray& bytes, const QString& path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) ||
        file.write(bytes) != bytes.size() || !file.commit())
        return {Exit::failed, path + ": " + file.errorString()};
    return {};
}

} // namespace

Outcome ScreenshotTool::run(const ToolOptions& options, const QByteArray& displayName, const QString& scales)
{
    const Pixels pixels = grab(options, displayName, scales);
    if (!pixels)
        return pixels.error();
    const auto bytes = ImageCodec::encode(*pixels, options.format, 1);
    return bytes ? write(*bytes, options.path) : Outcome{Exit::failed, bytes.error().message};
}

} // namespace Kovrel
