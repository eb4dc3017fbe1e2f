#pragma once

#include "platform/PanelShapes.h"
#include "platform/x11/X11Connection.h"

#include <memory>

namespace Kovrel {

// The input shapes of windows on an X server.
class X11PanelShapes : public PanelShapes {
public:
    explicit X11PanelShapes(std::unique_ptr<X11Connection> connection);

    void takeInputOnlyIn(quintptr window, const QRegion& pixels) override;

private:
    void refuseShadow(xcb_window_t window);

    std::unique_ptr<X11Connection> m_connection;
};

} // namespace Kovrel
