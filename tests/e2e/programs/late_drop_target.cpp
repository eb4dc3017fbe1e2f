#include "platform/x11/X11Property.h"

#include <cstdio>

namespace {

using namespace Kovrel;

// Takes what is dropped on it as programs made with GTK 4 do: through another window of its own, and without saying
// when it was dropped.
class DropTarget {
public:
    DropTarget() : m_window(window({0, 0, 300, 200}, 0x00ff00)), m_taker(window({0, 0, 1, 1}, 0))
    {
        const uint32_t version = 5;
        xcb_change_property(m_x.handle(), XCB_PROP_MODE_REPLACE, m_window, m_x.atom("XdndAware"), XCB_ATOM_ATOM, 32, 1,
                            &version);
        xcb_map_window(m_x.handle(), m_window);
    }

    void run()
    {
        xcb_flush(m_x.handle());
        while (const X11Reply<xcb_generic_event_t> event{xcb_wait_for_event(m_x.handle())}) {
            const int type = event->response_type & 0x7f;
            if (type == XCB_CLIENT_MESSAGE)
                told(*reinterpret_cast<const xcb_client_message_event_t*>(event.get()));
            else if (type == XCB_SELECTION_NOTIFY)
                taken(*reinterpret_cast<const xcb_selection_notify_event_t*>(event.get()));
            xcb_flush(m_x.handle());
        }
    }

private:
    xcb_window_t window(xcb_rectangle_t place, uint32_t colour)
    {
        const xcb_window_t made = xcb_generate_id(m_x.handle());
        const uint32_t values[] = {colour, true};
        xcb_create_window(m_x.handle(), XCB_COPY_FROM_PARENT, made, m_x.root(), place.x, place.y, place.width,
                          place.height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
        return made;
    }

    void told(const xcb_client_message_event_t& event)
    {
        m_source = event.data.data32[0];
        if (event.type == m_x.atom("XdndPosition"))
            tell("XdndStatus", 0);
        else if (event.type == m_x.atom("XdndDrop"))
            xcb_convert_selection(m_x.handle(), m_taker, m_x.atom("XdndSelection"), m_x.atom("text/uri-list"),
                                  m_x.atom("DROPPED"), XCB_CURRENT_TIME);
    }

    void taken(const xcb_selection_notify_event_t& event)
    {
        if (event.property != XCB_NONE)
            std::printf("%s", X11Property(m_x, m_taker, "DROPPED").bytes().constData());
        std::fflush(stdout);
        tell("XdndFinished", m_x.atom("XdndActionCopy"));
    }

    void tell(const char* what, xcb_atom_t finished)
    {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = m_source;
        event.type = m_x.atom(what);
        event.data.data32[0] = m_window;
        event.data.data32[1] = 1;
        event.data.data32[2] = finished;
        event.data.data32[4] = m_x.atom("XdndActionCopy");
        xcb_send_event(m_x.handle(), false, m_source, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
    }

    X11Connection m_x;
    xcb_window_t m_window;
    xcb_window_t m_taker;
    xcb_window_t m_source = XCB_NONE;
};

} // namespace

// A window in the screen's upper left corner for files that are dragged out of another program.
int main()
{
    DropTarget().run();
}
