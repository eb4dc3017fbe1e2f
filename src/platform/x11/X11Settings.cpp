#include "platform/x11/X11Settings.h"

#include "platform/x11/X11Property.h"

#include <QDataStream>

#include <optional>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

enum class Kind : quint8 { number, text, color };

void skipPadding(QDataStream& stream, qint64 length)
{
    stream.skipRawData(int((4 - length % 4) % 4));
}

// A text with what fills it up to whole words; none where the rest is shorter.
std::optional<QByteArray> takeText(QDataStream& stream, qint64 length, qint64 longest)
{
    if (length > longest)
        return {};
    QByteArray text(length, '\0');
    if (stream.readRawData(text.data(), int(length)) != length)
        return {};
    skipPadding(stream, length);
    return text;
}

} // namespace

// The format is that of XSETTINGS (freedesktop.org). Whoever owns the selection may have written anything.
X11Settings::Texts X11Settings::textsIn(const QByteArray& property)
{
    QDataStream stream(property);
    quint8 order = 0;
    quint32 serial = 0;
    quint32 count = 0;
    stream >> order;
    stream.skipRawData(3);
    stream.setByteOrder(order == XCB_IMAGE_ORDER_MSB_FIRST ? QDataStream::BigEndian : QDataStream::LittleEndian);
    stream >> serial >> count;
    Texts texts;
    for (; count > 0 && stream.status() == QDataStream::Ok; --count) {
        quint8 kind = 0;
        quint8 padding = 0;
        quint16 nameLength = 0;
        stream >> kind >> padding >> nameLength;
        const auto name = takeText(stream, nameLength, property.size());
        stream >> serial;
        if (!name || kind > quint8(Kind::color))
            break;
        if (Kind(kind) != Kind::text) {
            stream.skipRawData(Kind(kind) == Kind::number ? 4 : 8);
            continue;
        }
        quint32 length = 0;
        stream >> length;
        const auto text = takeText(stream, length, property.size());
        if (!text)
            break;
        texts[*name] = *text;
    }
    return texts;
}

X11Settings::X11Settings(std::unique_ptr<X11Connection> connection) : m_connection(std::move(connection))
{
    if (!m_connection->isAlive())
        return;
    const int socket = xcb_get_file_descriptor(m_connection->handle());
    m_notifier = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { handleEvents(); });
    select(m_connection->root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY); // a new manager tells the root window
    m_texts = read();
    handleEvents();
}

void X11Settings::select(xcb_window_t window, uint32_t mask)
{
    xcb_change_window_attributes(m_connection->handle(), window, XCB_CW_EVENT_MASK, &mask);
}

// The manager keeps its settings at a window of its own. One that goes leaves what it has said.
X11Settings::Texts X11Settings::read()
{
    X11Connection& x = *m_connection;
    const auto selection = x.atom("_XSETTINGS_S" + QByteArray::number(x.screenNumber()));
    const auto owner = x.reply(xcb_get_selection_owner_reply, xcb_get_selection_owner(x.handle(), selection));
    if (!owner || owner->owner == XCB_NONE)
        return m_texts;
    select(owner->owner, XCB_EVENT_MASK_PROPERTY_CHANGE);
    return textsIn(X11Property(x, owner->owner, "_XSETTINGS_SETTINGS").bytes());
}

QString X11Settings::text(const QByteArray& name) const
{
    const auto found = m_texts.find(name);
    return found == m_texts.end() ? QString() : QString::fromUtf8(found->second);
}

void X11Settings::handleEvents()
{
    const Texts before = m_texts;
    // Events that arrive during the look wait in xcb's queue, of which the notifier does not know.
    while (m_connection->nextEvent(0ms)) {
        while (m_connection->nextEvent(0ms))
            continue;
        m_texts = read();
    }
    if (!m_connection->isAlive())
        m_notifier->setEnabled(false);
    if (m_texts != before)
        m_observers.notify();
}

} // namespace Kovrel
