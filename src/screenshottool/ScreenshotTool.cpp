#include "screenshottool/ScreenshotTool.h"

#include "platform/DisplayScales.h"
#include "platform/ImageCodec.h"
#include "platform/files/AtomicFile.h"
#include "platform/stills/Stills.h"

namespace Kovrel {

using ScreenshotTool::Exit;
using ScreenshotTool::Outcome;

namespace {

using Pixels = std::expected<QImage, Outcome>;

Pixels orReason(GrabbedImage image)
{
    if (!image)
        return std::unexpected(Outcome{Exit::failed, reason(image.error())});
    return *std::move(image);
}

Pixels grabPicked(DesktopStills& desktop)
{
    const auto window = desktop.pickWindow();
    if (window)
        return orReason(desktop.grabWindow(*window));
    if (window.error() == DesktopStills::PickFailure::cancelled)
        return std::unexpected(Outcome{Exit::cancelled, "cancelled"});
    return std::unexpected(Outcome{Exit::failed, "another program holds the keyboard or the pointer"});
}

Pixels grabScreen(DesktopStills& desktop, const ToolOptions& options, const QString& scales)
{
    const DisplayList displays = desktop.displays(DisplayScales::read(scales));
    if (displays.empty())
        return std::unexpected(Outcome{Exit::failed, "there is no display"});
    const QRect pixels =
        options.rect ? rootPixels(displays, flipped(displays, *options.rect)) : displays.front().pixelRect;
    return orReason(desktop.grab(pixels, options.drawsPointer ? ScreenPixels::PointerOption::drawn
                                                              : ScreenPixels::PointerOption::without));
}

Pixels grab(const ToolOptions& options, const QByteArray& displayName, const QString& scales)
{
    const auto desktop = Stills::open(displayName);
    if (!desktop)
        return std::unexpected(Outcome{Exit::failed, "there is no display server"});
    if (options.window)
        return orReason(desktop->grabWindow(*options.window));
    return options.picksWindow ? grabPicked(*desktop) : grabScreen(*desktop, options, scales);
}

Outcome write(const QByteArray& bytes, const QString& path)
{
    const auto written = AtomicFile::write(path, bytes, AtomicFile::Access::onlyOwner);
    return written ? Outcome() : Outcome{Exit::failed, written.error().message};
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
