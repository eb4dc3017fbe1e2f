#include "platform/x11/X11Monitor.h"

#include <algorithm>

#include <xcb/randr.h>

namespace Kovrel {

namespace {

std::vector<X11Monitor> rootAsMonitor(X11Connection& x)
{
    const auto root = x.reply(xcb_get_geometry_reply, xcb_get_geometry(x.handle(), x.root()));
    if (!root)
        return {};
    return {{x.atom("screen"), "screen", QRect(0, 0, root->width, root->height), true}};
}

bool isShown(const std::vector<X11Monitor>& monitors, const QRect& pixels)
{
    return std::ranges::any_of(monitors, [&](const X11Monitor& other) { return other.pixels == pixels; });
}

std::vector<X11Monitor> fromServer(X11Connection& x, const xcb_randr_get_monitors_reply_t* reply)
{
    std::vector<X11Monitor> monitors;
    auto infos = xcb_randr_get_monitors_monitors_iterator(reply);
    for (; infos.rem > 0; xcb_randr_monitor_info_next(&infos)) {
        const xcb_randr_monitor_info_t& info = *infos.data;
        const QRect pixels(info.x, info.y, info.width, info.height);
        if (!pixels.isEmpty() && !isShown(monitors, pixels))
            monitors.push_back({info.name, QString::fromUtf8(x.atomName(info.name)), pixels, info.primary != 0});
    }
    return monitors;
}

} // namespace

std::vector<X11Monitor> X11Monitor::all(X11Connection& x)
{
    if (!x.has(xcb_randr_id))
        return rootAsMonitor(x);
    const auto reply = x.reply(xcb_randr_get_monitors_reply, xcb_randr_get_monitors(x.handle(), x.root(), true));
    if (!reply)
        return rootAsMonitor(x); // a server older than the list of monitors
    auto monitors = fromServer(x, reply.get());
    const auto primary = std::ranges::find_if(monitors, &X11Monitor::isPrimary);
    if (primary != monitors.end())
        std::rotate(monitors.begin(), primary, primary + 1);
    else if (!monitors.empty())
        monitors.front().isPrimary = true;
    return monitors;
}

} // namespace Kovrel
