#include "tests/support/SettingsManager.h"

#include <QDataStream>
#include <QIODevice>

#include <cstdlib>
#include <memory>

namespace Kovrel::Testing {

namespace {

void writeText(QDataStream& stream, const QByteArray& text)
{
    stream.writeRawData(text.constData(), int(text.size()));
    stream.writeRawData("\0\0\0", int((4 - text.size() % 4) % 4));
}

void writeHead(QDataStream& stream, quint8 kind, const QByteArray& name)
{
    stream << kind << quint8(0) << quint16(name.size());
    writeText(stream, name);
    stream << quint32(0);
}

} // namespace

SettingsManager::SettingsManager(const QByteArray& display)
    : m_connection(xcb_connect(display.constData(), nullptr)), m_window(xcb_generate_id(m_connection))
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    xcb_create_window(m_connection, 0, m_window, root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                      0, nullptr);
    xcb_set_selection_owner(m_connection, m_window, atom("_XSETTINGS_S0"), XCB_CURRENT_TIME);
    xcb_client_message_event_t news{};
    news.response_type = XCB_CLIENT_MESSAGE;
    news.format = 32;
    news.window = root;
    news.type = atom("MANAGER");
    news.data.data32[1] = atom("_XSETTINGS_S0");
    news.data.data32[2] = m_window;
    xcb_send_event(m_connection, false, root, XCB_EVENT_MASK_STRUCTURE_NOTIFY, reinterpret_cast<const char*>(&news));
    xcb_flush(m_connection);
}

SettingsManager::~SettingsManager()
{
    xcb_disconnect(m_connection);
}

xcb_atom_t SettingsManager::atom(const QByteArray& name) const
{
    const auto cookie = xcb_intern_atom(m_connection, false, quint16(name.size()), name.constData());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(m_connection, cookie, nullptr), std::free);
    return reply->atom;
}

void SettingsManager::setTheme(const QByteArray& name)
{
    QByteArray settings;
    QDataStream stream(&settings, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::BigEndian);
    stream << quint8(XCB_IMAGE_ORDER_MSB_FIRST) << quint8(0) << quint16(0) << quint32(1) << quint32(3);
    writeHead(stream, 0, "Xft/DPI");
    stream << quint32(98304);
    writeHead(stream, 2, "Gtk/Tint");
    stream << quint64(0);
    writeHead(stream, 1, "Net/ThemeName");
    stream << quint32(name.size());
    writeText(stream, name);
    set(settings);
}

void SettingsManager::set(const QByteArray& settings)
{
    m_settings = settings;
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, atom("_XSETTINGS_SETTINGS"),
                        atom("_XSETTINGS_SETTINGS"), 8, quint32(settings.size()), settings.constData());
    xcb_flush(m_connection);
}

} // namespace Kovrel::Testing
