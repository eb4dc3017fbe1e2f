#include "platform/x11/X11Clipboard.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"
#include "platform/x11/X11ClipboardReader.h"
#include "platform/x11/X11Property.h"
#include "platform/x11/X11SelectionAnswer.h"

#include <QString>

#include <algorithm>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

constexpr auto handOverPatience = 3s;
constexpr X11ClipboardReader::Limits readLimits{.patience = 5s, .bytes = Clipboard::mostBytes};
constexpr const char* plainText = "STRING"; // in Latin-1, from old programs
constexpr uint8_t sentEvent = 0x80;

template <class Event>
const Event& as(const xcb_generic_event_t& event)
{
    return reinterpret_cast<const Event&>(event);
}

std::optional<QString> readTextNow()
{
    const QStringList types{"text/plain;charset=utf-8", "UTF8_STRING", "text/plain", plainText};
    const auto content = X11ClipboardReader({}, readLimits).read(types);
    if (!content)
        return std::nullopt;
    return content->mimeType == plainText ? QString::fromLatin1(content->bytes) : QString::fromUtf8(content->bytes);
}

} // namespace

X11Clipboard::X11Clipboard(MainLoop& loop, Workers& workers, std::unique_ptr<X11Connection> connection)
    : m_loop(loop), m_workers(workers), m_connection(std::move(connection))
{
    if (!m_connection->isAlive())
        return;
    m_selection = m_connection->atom("CLIPBOARD");
    m_window = xcb_generate_id(m_connection->handle());
    const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection->handle(), 0, m_window, m_connection->root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
    m_thread = std::thread([this] { serve(); });
}

X11Clipboard::~X11Clipboard()
{
    if (!m_thread.joinable())
        return;
    m_isLeaving = true;
    // Wakes the thread.
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 8;
    message.window = m_window;
    message.type = m_selection;
    xcb_send_event(m_connection->handle(), false, m_window, 0, reinterpret_cast<const char*>(&message));
    xcb_flush(m_connection->handle());
    m_thread.join();
}

void X11Clipboard::put(std::vector<ClipboardOffer> offers)
{
    {
        const std::lock_guard locked(m_lock);
        m_offers = std::make_shared<const std::vector<ClipboardOffer>>(std::move(offers));
    }
    xcb_set_selection_owner(m_connection->handle(), m_window, m_selection, XCB_CURRENT_TIME);
    // Tells the thread the time.
    xcb_change_property(m_connection->handle(), XCB_PROP_MODE_APPEND, m_window, m_selection, XCB_ATOM_INTEGER, 8, 0,
                        nullptr);
    m_connection->roundTrip();
}

void X11Clipboard::putText(const QString& text)
{
    std::vector<ClipboardOffer> offers;
    for (const char* type : {"UTF8_STRING", "text/plain;charset=utf-8", "text/plain"})
        offers.push_back({type, [text] { return text.toUtf8(); }});
    offers.push_back({plainText, [text] { return text.toLatin1(); }});
    put(std::move(offers));
}

void X11Clipboard::read(QStringList mimeTypes, Reply<std::optional<ClipboardContent>> reply)
{
    const auto job = [mimeTypes = std::move(mimeTypes)] { return X11ClipboardReader({}, readLimits).read(mimeTypes); };
    replyFromWorker<std::optional<ClipboardContent>>(m_loop, m_workers, Lane::paste, Guarded::orElse(job, std::nullopt),
                                                     std::move(reply));
}

void X11Clipboard::readText(Reply<std::optional<QString>> reply)
{
    replyFromWorker<std::optional<QString>>(m_loop, m_workers, Lane::paste, Guarded::orElse(readTextNow, std::nullopt),
                                            std::move(reply));
}

void X11Clipboard::serve()
{
    for (;;) {
        const X11Reply<xcb_generic_event_t> event(xcb_wait_for_event(m_connection->handle()));
        if (!event) // the server has gone
            return;
        if (!handle(*event))
            break;
    }
    handOver();
}

// False when it is time to go.
bool X11Clipboard::handle(const xcb_generic_event_t& event)
{
    switch (event.response_type & ~sentEvent) {
    case XCB_CLIENT_MESSAGE:
        return !m_isLeaving;
    case XCB_DESTROY_NOTIFY:
        std::erase_if(m_transfers, [&](const X11Transfer& transfer) {
            return transfer.isTo(as<xcb_destroy_notify_event_t>(event).window);
        });
        break;
    case XCB_SELECTION_REQUEST:
        answer(as<xcb_selection_request_event_t>(event));
        break;
    case XCB_SELECTION_CLEAR:
        forget(as<xcb_selection_clear_event_t>(event));
        break;
    case XCB_PROPERTY_NOTIFY:
        noteTime(as<xcb_property_notify_event_t>(event));
        continueTransfers(as<xcb_property_notify_event_t>(event));
        break;
    default:
        break;
    }
    xcb_flush(m_connection->handle());
    return true;
}

void X11Clipboard::noteTime(const xcb_property_notify_event_t& event)
{
    if (event.window == m_window)
        m_time = event.time;
}

// Unless it was taken back since.
void X11Clipboard::forget(const xcb_selection_clear_event_t& event)
{
    const auto owner = m_connection->reply(xcb_get_selection_owner_reply,
                                           xcb_get_selection_owner(m_connection->handle(), event.selection));
    const std::lock_guard locked(m_lock);
    if (!owner || owner->owner != m_window)
        m_offers.reset();
}

void X11Clipboard::answer(const xcb_selection_request_event_t& request)
{
    // Old programs name no property.
    const xcb_atom_t property = request.property == XCB_NONE ? request.target : request.property;
    const bool isFilled = request.target == m_connection->atom("MULTIPLE")
                              ? fillSeveral(request.requestor, property)
                              : fill(request.requestor, property, request.target);
    X11SelectionAnswer::send(*m_connection, request, isFilled ? property : xcb_atom_t(XCB_NONE));
}

bool X11Clipboard::fill(xcb_window_t window, xcb_atom_t property, xcb_atom_t target)
{
    if (target == m_connection->atom("TARGETS"))
        fillNumbers(window, property, XCB_ATOM_ATOM, targets());
    else if (target == m_connection->atom("TIMESTAMP"))
        fillNumbers(window, property, XCB_ATOM_INTEGER, {m_time});
    else
        return fillWithOffer(window, property, target);
    return true;
}

// The property holds pairs of targets and properties.
bool X11Clipboard::fillSeveral(xcb_window_t window, xcb_atom_t property)
{
    const auto pairs =
        m_connection->reply(xcb_get_property_reply, xcb_get_property(m_connection->handle(), false, window, property,
                                                                     XCB_GET_PROPERTY_TYPE_ANY, 0, 1000));
    if (!pairs || pairs->format != 32)
        return false;
    const auto* first = static_cast<const quint32*>(xcb_get_property_value(pairs.get()));
    std::vector<quint32> atoms(first, first + pairs->value_len / 2 * 2);
    for (size_t pair = 0; pair < atoms.size(); pair += 2)
        if (!fill(window, atoms[pair + 1], atoms[pair]))
            atoms[pair + 1] = XCB_NONE;
    fillNumbers(window, property, m_connection->atom("ATOM_PAIR"), atoms);
    return true;
}

void X11Clipboard::fillNumbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                               const std::vector<quint32>& numbers)
{
    xcb_change_property(m_connection->handle(), XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        uint32_t(numbers.size()), numbers.data());
}

bool X11Clipboard::fillWithOffer(xcb_window_t window, xcb_atom_t property, xcb_atom_t target)
{
    const Offers present = offers();
    if (!present)
        return false;
    const auto offer = std::ranges::find(
        *present, target, [this](const ClipboardOffer& one) { return m_connection->atom(one.mimeType.toUtf8()); });
    if (offer == present->end())
        return false;
    QByteArray bytes = Guarded::orElse(offer->bytes, QByteArray())();
    if (bytes.isEmpty())
        return false;
    X11Transfer transfer(*m_connection, window, property, target, std::move(bytes));
    if (transfer.begin())
        m_transfers.push_back(std::move(transfer));
    return true;
}

std::vector<quint32> X11Clipboard::targets()
{
    std::vector<quint32> atoms;
    for (const char* always : {"TARGETS", "TIMESTAMP", "MULTIPLE"})
        atoms.push_back(m_connection->atom(always));
    if (const Offers present = offers())
        for (const ClipboardOffer& offer : *present)
            atoms.push_back(m_connection->atom(offer.mimeType.toUtf8()));
    return atoms;
}

void X11Clipboard::continueTransfers(const xcb_property_notify_event_t& event)
{
    m_transfers.remove_if([&](X11Transfer& transfer) { return transfer.isFor(event) && !transfer.putNext(); });
}

// Asks the clipboard manager to fetch what is there, and answers until it has.
void X11Clipboard::handOver()
{
    const xcb_atom_t manager = m_connection->atom("CLIPBOARD_MANAGER");
    const auto owner =
        m_connection->reply(xcb_get_selection_owner_reply, xcb_get_selection_owner(m_connection->handle(), manager));
    if (!offers() || !owner || owner->owner == XCB_NONE)
        return;
    xcb_convert_selection(m_connection->handle(), m_window, manager, m_connection->atom("SAVE_TARGETS"), manager,
                          m_time);
    xcb_flush(m_connection->handle());
    const auto deadline = std::chrono::steady_clock::now() + handOverPatience;
    for (bool isTaken = false; !isTaken || !m_transfers.empty();) {
        const auto left = deadline - std::chrono::steady_clock::now();
        const auto event = m_connection->nextEvent(std::chrono::duration_cast<std::chrono::milliseconds>(left));
        if (!event)
            return;
        isTaken |= (event->response_type & ~sentEvent) == XCB_SELECTION_NOTIFY;
        handle(*event);
    }
}

X11Clipboard::Offers X11Clipboard::offers()
{
    const std::lock_guard locked(m_lock);
    return m_offers;
}

} // namespace Kovrel
