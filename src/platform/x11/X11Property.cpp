#include "platform/x11/X11Property.h"

namespace Kovrel {

namespace {

constexpr uint32_t longest = 1 << 16; // in words of 32 bits; nobody has a title or a window list beyond that

}

X11Property::X11Property(X11Connection& connection, xcb_window_t window, const char* name)
    : m_connection(connection),
      m_cookie(xcb_get_property(connection.handle(), false, window, connection.atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0,
                                longest))
{
}

X11Property::~X11Property()
{
    if (!m_isTaken)
        xcb_discard_reply(m_connection.handle(), m_cookie.sequence);
}

const xcb_get_property_reply_t* X11Property::answer()
{
    if (!std::exchange(m_isTaken, true))
        m_answer = m_connection.reply(xcb_get_property_reply, m_cookie);
    return m_answer.get();
}

std::vector<quint32> X11Property::numbers()
{
    const auto* reply = answer();
    if (!reply || reply->format != 32)
        return {};
    const auto* first = static_cast<const quint32*>(xcb_get_property_value(reply));
    return {first, first + reply->value_len};
}

quint32 X11Property::number(quint32 otherwise)
{
    const auto values = numbers();
    return values.empty() ? otherwise : values.front();
}

QByteArray X11Property::bytes()
{
    const auto* reply = answer();
    if (!reply || reply->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply)), qsizetype(reply->value_len)};
}

QString X11Property::text()
{
    return QString::fromUtf8(bytes());
}

} // namespace Kovrel
