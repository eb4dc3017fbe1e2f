#include "platform/x11/X11WorkArea.h"

#include "platform/x11/X11Property.h"

namespace Kovrel {

namespace {

std::vector<QRect> rectsIn(X11Connection& x, const QByteArray& property)
{
    X11Property areas(x, x.root(), property);
    const auto values = areas.numbers();
    std::vector<QRect> rects;
    for (size_t first = 0; first + 4 <= values.size(); first += 4)
        rects.push_back({int(values[first]), int(values[first + 1]), int(values[first + 2]), int(values[first + 3])});
    return rects;
}

// Left, right, top, bottom, then start and end along each; the older form knows no starts and ends.
std::vector<quint32> strutOf(X11Connection& x, xcb_window_t window, QSize root)
{
    X11Property partial(x, window, "_NET_WM_STRUT_PARTIAL");
    X11Property plain(x, window, "_NET_WM_STRUT");
    auto values = partial.numbers();
    if (values.size() >= 12)
        return values;
    values = plain.numbers();
    if (values.size() < 4)
        return {};
    const auto bottom = quint32(root.height() - 1);
    const auto right = quint32(root.width() - 1);
    values.resize(4);
    values.insert(values.end(), {0, bottom, 0, bottom, 0, right, 0, right});
    return values;
}

} // namespace

X11WorkArea::X11WorkArea(X11Connection& x)
{
    const auto geometry = x.reply(xcb_get_geometry_reply, xcb_get_geometry(x.handle(), x.root()));
    if (!geometry)
        return;
    readAreas(x);
    const QSize root(geometry->width, geometry->height);
    X11Property clients(x, x.root(), "_NET_CLIENT_LIST");
    for (const xcb_window_t client : clients.numbers())
        addStrips(strutOf(x, client, root), root);
}

void X11WorkArea::readAreas(X11Connection& x)
{
    const quint32 desktop = X11Property(x, x.root(), "_NET_CURRENT_DESKTOP").number();
    const auto wholes = rectsIn(x, "_NET_WORKAREA");
    if (desktop < wholes.size())
        m_whole = wholes[desktop];
    m_ofDisplays = rectsIn(x, perDisplay + QByteArray::number(desktop));
}

void X11WorkArea::addStrips(const std::vector<quint32>& strut, QSize root)
{
    if (strut.empty())
        return;
    const auto value = [&](size_t index) { return int(strut[index]); };
    const auto length = [&](size_t start) { return value(start + 1) - value(start) + 1; };
    const Strip strips[] = {
        {Edge::left, QRect(0, value(4), value(0), length(4))},
        {Edge::right, QRect(root.width() - value(1), value(6), value(1), length(6))},
        {Edge::top, QRect(value(8), 0, length(8), value(2))},
        {Edge::bottom, QRect(value(10), root.height() - value(3), length(10), value(3))},
    };
    for (const Strip& strip : strips) {
        if (!strip.pixels.isEmpty())
            m_strips.push_back(strip);
    }
}

QRect X11WorkArea::without(const QRect& area, const Strip& strip)
{
    QRect rest = area;
    switch (strip.edge) {
    case Edge::left:
        rest.setLeft(std::max(rest.left(), strip.pixels.right() + 1));
        break;
    case Edge::right:
        rest.setRight(std::min(rest.right(), strip.pixels.left() - 1));
        break;
    case Edge::top:
        rest.setTop(std::max(rest.top(), strip.pixels.bottom() + 1));
        break;
    case Edge::bottom:
        rest.setBottom(std::min(rest.bottom(), strip.pixels.top() - 1));
        break;
    }
    return rest;
}

QRect X11WorkArea::within(const QRect& display, bool isOnly) const
{
    QRect area = isOnly && m_whole && m_whole->intersects(display) ? display & *m_whole : display;
    const auto told = std::ranges::find_if(m_ofDisplays, [&](const QRect& rect) { return display.contains(rect); });
    if (told != m_ofDisplays.end())
        area &= *told;
    for (const Strip& strip : m_strips) {
        if (!strip.pixels.intersects(display))
            continue;
        // A strip is counted from the edge of the whole screen, so that of a dock between two displays runs right
        // across the outer one. It takes nothing away from that.
        const QRect rest = without(area, strip);
        if (!rest.isEmpty())
            area = rest;
    }
    return area;
}

} // namespace Kovrel
