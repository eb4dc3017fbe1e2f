#pragma once

#include "platform/x11/X11Connection.h"

#include <QRect>

#include <optional>
#include <vector>

namespace Kovrel {

// The edges of the screen that panels and docks reserve.
class X11WorkArea {
public:
    // The work areas of each display, where a desktop tells them: what draws its panels itself has no windows to tell
    // of them. The number of the virtual desktop follows.
    static constexpr const char* perDisplay = "_GTK_WORKAREAS_D";

    explicit X11WorkArea(X11Connection& connection);

    // What is left of a display, in root pixels. `isOnly`: it is the only display; then the window manager's own
    // idea of the work area counts too, which knows no single displays.
    QRect within(const QRect& display, bool isOnly) const;

private:
    enum class Edge { left, right, top, bottom };

    struct Strip {
        Edge edge;
        QRect pixels;
    };

    void readAreas(X11Connection& connection);
    void addStrips(const std::vector<quint32>& strut, QSize root);
    static QRect without(const QRect& area, const Strip& strip);

    std::vector<Strip> m_strips;
    std::optional<QRect> m_whole; // of all displays together
    std::vector<QRect> m_ofDisplays;
};

} // namespace Kovrel
