#include "platform/x11/windows/X11WindowList.h"

#include "platform/x11/X11Property.h"
#include "platform/x11/windows/X11Frame.h"

#include <map>

#include <xcb/shape.h>

namespace Kovrel {

namespace {

constexpr quint32 onEveryDesktop = 0xffffffff;

constexpr std::pair<const char*, WindowType> windowTypes[] = {
    {"_NET_WM_WINDOW_TYPE_NORMAL", WindowType::normal},   {"_NET_WM_WINDOW_TYPE_DIALOG", WindowType::dialog},
    {"_NET_WM_WINDOW_TYPE_MENU", WindowType::menu},       {"_NET_WM_WINDOW_TYPE_DROPDOWN_MENU", WindowType::menu},
    {"_NET_WM_WINDOW_TYPE_POPUP_MENU", WindowType::menu}, {"_NET_WM_WINDOW_TYPE_COMBO", WindowType::menu},
    {"_NET_WM_WINDOW_TYPE_TOOLTIP", WindowType::tooltip}, {"_NET_WM_WINDOW_TYPE_DOCK", WindowType::dock},
    {"_NET_WM_WINDOW_TYPE_DESKTOP", WindowType::desktop},
};

// The first type of the window's preference that is known here.
WindowType typeFrom(X11Connection& x, const std::vector<quint32>& atoms, WindowType otherwise)
{
    for (const quint32 atom : atoms) {
        for (const auto& [name, type] : windowTypes) {
            if (x.atom(name) == atom)
                return type;
        }
    }
    return atoms.empty() ? otherwise : WindowType::other;
}

bool takesClicks(X11Connection& x, xcb_window_t window)
{
    if (!x.has(xcb_shape_id))
        return true;
    const auto input =
        x.reply(xcb_shape_get_rectangles_reply, xcb_shape_get_rectangles(x.handle(), window, XCB_SHAPE_SK_INPUT));
    return !input || xcb_shape_get_rectangles_rectangles_length(input.get()) > 0;
}

class Reading {
public:
    explicit Reading(X11Connection& x) : m_x(x)
    {
        X11Property clients(x, x.root(), "_NET_CLIENT_LIST_STACKING");
        X11Property desktop(x, x.root(), "_NET_CURRENT_DESKTOP");
        for (const xcb_window_t client : clients.numbers()) {
            if (const xcb_window_t topLevel = X11Frame::topLevelOf(x, client))
                m_clients.emplace(topLevel, client);
        }
        m_desktop = desktop.number();
    }

    std::optional<std::vector<X11WindowList::Entry>> entries()
    {
        const auto tree = m_x.reply(xcb_query_tree_reply, xcb_query_tree(m_x.handle(), m_x.root()));
        if (!tree)
            return {};
        std::vector<X11WindowList::Entry> entries;
        const xcb_window_t* children = xcb_query_tree_children(tree.get());
        for (int index = xcb_query_tree_children_length(tree.get()); index-- > 0;) {
            if (auto entry = entryFor(children[index]))
                entries.push_back(*std::move(entry));
        }
        return entries;
    }

private:
    std::optional<X11WindowList::Entry> entryFor(xcb_window_t topLevel)
    {
        const auto client = m_clients.find(topLevel);
        if (client != m_clients.end())
            return describe(client->second, WindowType::normal);
        return isPopUp(topLevel) ? describe(topLevel, WindowType::other) : std::nullopt;
    }

    // A window that nobody manages. The compositors' own, which cover everything, let clicks through.
    bool isPopUp(xcb_window_t window)
    {
        const auto attributes =
            m_x.reply(xcb_get_window_attributes_reply, xcb_get_window_attributes(m_x.handle(), window));
        return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
               attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT &&
               (attributes->override_redirect || m_clients.empty()) && takesClicks(m_x, window);
    }

    std::optional<X11WindowList::Entry> describe(xcb_window_t window, WindowType otherwise)
    {
        X11Property pid(m_x, window, "_NET_WM_PID");
        X11Property title(m_x, window, "_NET_WM_NAME");
        X11Property oldTitle(m_x, window, "WM_NAME");
        X11Property names(m_x, window, "WM_CLASS");
        X11Property types(m_x, window, "_NET_WM_WINDOW_TYPE");
        X11Property desktop(m_x, window, "_NET_WM_DESKTOP");
        const auto frame = X11Frame::of(m_x, window);
        if (!frame)
            return {};
        X11WindowList::Entry entry;
        entry.info.id = window;
        entry.info.ownerPid = pid.number();
        entry.info.title = title.text();
        if (entry.info.title.isEmpty())
            entry.info.title = QString::fromLatin1(oldTitle.bytes());
        entry.info.pixelRect = frame->visible;
        entry.info.type = typeFrom(m_x, types.numbers(), otherwise);
        entry.info.isOnScreen = frame->isViewable && isShown(desktop.number(onEveryDesktop));
        const auto parts = names.bytes().split('\0');
        entry.instanceName = parts.value(0);
        entry.className = parts.value(1);
        return entry;
    }

    bool isShown(quint32 desktop) const { return desktop == onEveryDesktop || desktop == m_desktop; }

    X11Connection& m_x;
    std::map<xcb_window_t, xcb_window_t> m_clients; // by top-level window
    quint32 m_desktop = 0;
};

} // namespace

std::optional<std::vector<X11WindowList::Entry>> X11WindowList::read(X11Connection& x)
{
    return Reading(x).entries();
}

} // namespace Kovrel
