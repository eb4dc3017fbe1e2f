#include "platform/x11/X11ClipboardReader.h"

#include <algorithm>
#include <span>

namespace Kovrel {

namespace {

constexpr uint8_t sentEvent = 0x80;

QByteArray bytesOf(const xcb_get_property_reply_t& answer)
{
    return {static_cast<const char*>(xcb_get_property_value(&answer)), xcb_get_property_value_length(&answer)};
}

bool hasAtom(const QByteArray& atoms, xcb_atom_t atom)
{
    const std::span all(reinterpret_cast<const xcb_atom_t*>(atoms.constData()), size_t(atoms.size()) / sizeof atom);
    return atom != XCB_NONE && std::ranges::find(all, atom) != all.end();
}

} // namespace

X11ClipboardReader::X11ClipboardReader(const QByteArray& displayName, Limits limits)
    : m_limits(limits), m_deadline(limits.patience), m_connection(displayName)
{
    if (!m_connection.isAlive())
        return;
    m_property = m_connection.atom("KOVREL_CLIPBOARD");
    m_window = xcb_generate_id(m_connection.handle());
    const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection.handle(), 0, m_window, m_connection.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
}

std::optional<ClipboardContent> X11ClipboardReader::read(const QStringList& mimeTypes)
{
    const Bytes targets = fetch("TARGETS");
    if (!targets)
        return std::nullopt;
    const auto type = std::ranges::find_if(
        mimeTypes, [&](const QString& one) { return hasAtom(*targets, m_connection.atom(one.toUtf8())); });
    if (type == mimeTypes.end())
        return std::nullopt;
    Bytes bytes = fetch(type->toUtf8());
    return bytes ? std::optional(ClipboardContent{*type, *std::move(bytes)}) : std::nullopt;
}

X11ClipboardReader::Bytes X11ClipboardReader::fetch(const QByteArray& target)
{
    if (!m_connection.isAlive())
        return std::nullopt;
    xcb_convert_selection(m_connection.handle(), m_window, m_connection.atom("CLIPBOARD"), m_connection.atom(target),
                          m_property, XCB_CURRENT_TIME);
    const auto event = awaitEvent(XCB_SELECTION_NOTIFY);
    if (!event || reinterpret_cast<const xcb_selection_notify_event_t&>(*event).property == XCB_NONE)
        return std::nullopt;
    const auto answer = take();
    if (!answer)
        return std::nullopt;
    return answer->type == m_connection.atom("INCR") ? fetchPieces() : bytesOf(*answer);
}

// The owner puts a piece each time the one before is taken; one without bytes is the end (ICCCM's INCR).
X11ClipboardReader::Bytes X11ClipboardReader::fetchPieces()
{
    QByteArray all;
    while (awaitEvent(XCB_PROPERTY_NOTIFY)) {
        const auto piece = take();
        if (!piece || all.size() + xcb_get_property_value_length(piece.get()) > m_limits.bytes)
            return std::nullopt;
        if (piece->type == XCB_NONE) // it was told that the last one was taken
            continue;
        if (piece->value_len == 0)
            return all;
        all += bytesOf(*piece);
    }
    return std::nullopt;
}

// What the property holds, and removes it; null where that is too much.
X11Reply<xcb_get_property_reply_t> X11ClipboardReader::take()
{
    const auto words = uint32_t(m_limits.bytes / 4);
    auto answer =
        m_connection.reply(xcb_get_property_reply, xcb_get_property(m_connection.handle(), true, m_window, m_property,
                                                                    XCB_GET_PROPERTY_TYPE_ANY, 0, words));
    return answer && answer->bytes_after == 0 ? std::move(answer) : nullptr;
}

X11Reply<xcb_generic_event_t> X11ClipboardReader::awaitEvent(uint8_t type)
{
    while (!m_deadline.hasExpired()) {
        auto event = m_connection.nextEvent(std::chrono::milliseconds(m_deadline.remainingTime()));
        if (!event || (event->response_type & ~sentEvent) == type)
            return event;
    }
    return nullptr;
}

} // namespace Kovrel
