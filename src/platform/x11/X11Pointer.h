#pragma once

#include "platform/Displays.h"
#include "platform/MainLoop.h"
#include "platform/Pointer.h"
#include "platform/Workers.h"
#include "platform/x11/X11Connection.h"

namespace Kovrel {

// The mouse pointer of an X server, asked for on the capture lane.
class X11Pointer : public Pointer {
public:
    // The connection is used on the capture lane only. Displays outlive every reply.
    X11Pointer(MainLoop& loop, Workers& workers, std::shared_ptr<X11Connection> connection, const Displays& displays);

    void position(Reply<std::optional<PointerPosition>> reply) override;
    void image(Reply<std::optional<PointerImage>> reply) override;

private:
    MainLoop& m_loop;
    Workers& m_workers;
    std::shared_ptr<X11Connection> m_connection;
    const Displays& m_displays;
};

} // namespace Kovrel
