#include "platform/x11/windows/X11Windows.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"
#include "platform/x11/windows/X11WindowImage.h"
#include "platform/x11/windows/X11WindowList.h"

namespace Kovrel {

namespace {

using Infos = std::optional<std::vector<WindowInfo>>;

Infos read(X11Connection& x, ApplicationNames& names)
{
    auto entries = X11WindowList::read(x);
    if (!entries)
        return {};
    std::vector<WindowInfo> infos;
    for (X11WindowList::Entry& entry : *entries) {
        entry.info.app = names.of(entry.instanceName, entry.className);
        infos.push_back(std::move(entry.info));
    }
    return infos;
}

Infos inPoints(Infos infos, const DisplayList& displays)
{
    if (!infos)
        return infos;
    for (WindowInfo& info : *infos) {
        if (const Display* display = displayNearest(displays, info.pixelRect))
            info.frame = display->toPoints(info.pixelRect);
    }
    return infos;
}

} // namespace

X11Windows::X11Windows(MainLoop& loop, Workers& workers, std::shared_ptr<X11ImageReader> reader,
                       const Displays& displays, ApplicationNames names)
    : m_loop(loop),
      m_workers(workers),
      m_reader(std::move(reader)),
      m_displays(displays),
      m_names(std::make_shared<ApplicationNames>(std::move(names)))
{
}

void X11Windows::list(Reply<std::optional<std::vector<WindowInfo>>> reply)
{
    const auto job = [reader = m_reader, names = m_names] { return read(reader->connection(), *names); };
    replyFromWorker<Infos>(m_loop, m_workers, Lane::capture, Guarded::orElse(job, std::nullopt),
                           [&displays = m_displays, reply = std::move(reply)](Infos infos) {
                               reply(inPoints(std::move(infos), displays.all()));
                           });
}

void X11Windows::grab(quint32 windowID, Reply<GrabbedImage> reply)
{
    const auto job = [reader = m_reader, windowID] { return X11WindowImage::grab(*reader, windowID); };
    replyFromWorker<GrabbedImage>(m_loop, m_workers, Lane::capture,
                                  Guarded::orElse(job, std::unexpected(GrabFailure::noMemory)), std::move(reply));
}

} // namespace Kovrel
