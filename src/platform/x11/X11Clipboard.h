#pragma once

#include "platform/Clipboard.h"
#include "platform/MainLoop.h"
#include "platform/Workers.h"
#include "platform/x11/X11Transfer.h"

#include <atomic>
#include <list>
#include <mutex>
#include <thread>

namespace Kovrel {

// The X server's clipboard, served by a thread of its own: what a program asks for is made there, so that a clipboard
// manager that fetches every type costs the interface nothing, and a window of ours can ask, too. Large content is
// handed over in pieces. When it goes, a clipboard manager may take what is there, for some seconds at most.
class X11Clipboard : public Clipboard {
public:
    X11Clipboard(MainLoop& loop, Workers& workers, std::unique_ptr<X11Connection> connection);
    ~X11Clipboard() override;
    X11Clipboard(const X11Clipboard&) = delete;
    X11Clipboard& operator=(const X11Clipboard&) = delete;

    // Ours once this returns: whoever asks the server afterwards gets it.
    void put(std::vector<ClipboardOffer> offers) override;
    void putText(const QString& text) override;
    void read(QStringList mimeTypes, Reply<std::optional<ClipboardContent>> reply) override;
    void readText(Reply<std::optional<QString>> reply) override;

private:
    using Offers = std::shared_ptr<const std::vector<ClipboardOffer>>;

    // The rest is the thread's.
    void serve();
    bool handle(const xcb_generic_event_t& event);
    void forget(const xcb_selection_clear_event_t& event);
    void noteTime(const xcb_property_notify_event_t& event);
    void answer(const xcb_selection_request_event_t& request);
    bool fill(xcb_window_t window, xcb_atom_t property, xcb_atom_t target);
    bool fillSeveral(xcb_window_t window, xcb_atom_t property);
    void fillNumbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const std::vector<quint32>& numbers);
    bool fillWithOffer(xcb_window_t window, xcb_atom_t property, xcb_atom_t target);
    std::vector<quint32> targets();
    void continueTransfers(const xcb_property_notify_event_t& event);
    void handOver();
    Offers offers();

    MainLoop& m_loop;
    Workers& m_workers;
    std::unique_ptr<X11Connection> m_connection;
    xcb_window_t m_window = XCB_NONE;
    xcb_atom_t m_selection = XCB_NONE;
    std::mutex m_lock;
    Offers m_offers; // null: the clipboard is not ours
    xcb_timestamp_t m_time = XCB_CURRENT_TIME;
    std::list<X11Transfer> m_transfers;
    std::atomic<bool> m_isLeaving = false;
    std::thread m_thread;
};

} // namespace Kovrel
