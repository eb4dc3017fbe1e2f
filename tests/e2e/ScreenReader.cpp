#include "tests/e2e/ScreenReader.h"

#include "tests/e2e/UserSession.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <stdexcept>

#include <csignal>

namespace Kovrel::Testing {

namespace {

constexpr const char* connectionName = "screen reader";
constexpr int patienceMilliseconds = 3000;
constexpr const char* registry = "org.a11y.atspi.Registry";
constexpr const char* accessible = "org.a11y.atspi.Accessible";

} // namespace

ScreenReader::ScreenReader(UserSession& session)
{
    session.setVariable("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    session.start("/usr/libexec/at-spi-bus-launcher", {"--launch-immediately"});
    const QStringList question{"--session", "--print-reply=literal", "--dest=org.a11y.Bus", "/org/a11y/bus",
                               "org.a11y.Bus.GetAddress"};
    QString address;
    UserSession::eventually([&] {
        address = QString::fromUtf8(session.run("dbus-send", question).output).trimmed();
        return !address.isEmpty();
    });
    m_bus = QDBusConnection::connectToBus(address, connectionName);
    if (!m_bus.isConnected())
        throw std::runtime_error("no accessibility bus");
    m_daemon = m_bus.interface()->servicePid("org.freedesktop.DBus");
}

// The one who has started the bus leaves it behind.
ScreenReader::~ScreenReader()
{
    QDBusConnection::disconnectFromBus(connectionName);
    ::kill(pid_t(m_daemon), SIGTERM);
}

QVariant ScreenReader::call(const Item& item, const char* interface, const char* method,
                            const QVariantList& arguments) const
{
    auto message = QDBusMessage::createMethodCall(item.service, item.path, interface, method);
    message.setArguments(arguments);
    return m_bus.call(message, QDBus::Block, patienceMilliseconds).arguments().value(0);
}

std::vector<ScreenReader::Item> ScreenReader::children(const Item& item) const
{
    std::vector<Item> items;
    const auto list = call(item, accessible, "GetChildren").value<QDBusArgument>();
    for (list.beginArray(); !list.atEnd();) {
        QString service;
        QDBusObjectPath path;
        list.beginStructure();
        list >> service >> path;
        list.endStructure();
        items.push_back({.service = service, .path = path.path(), .parent = item.path});
    }
    for (Item& child : items) {
        child.role = call(child, accessible, "GetRoleName").toString();
        child.name = call(child, "org.freedesktop.DBus.Properties", "Get", {accessible, "Name"})
                         .value<QDBusVariant>()
                         .variant()
                         .toString();
    }
    return items;
}

bool ScreenReader::is(const Item& item, State state) const
{
    const auto words = qdbus_cast<QList<uint>>(call(item, accessible, "GetState"));
    return words.value(state / 32) >> (state % 32) & 1;
}

std::optional<ScreenReader::Item> ScreenReader::window(const QString& title) const
{
    for (const Item& program : children({registry, "/org/a11y/atspi/accessible/root"}))
        for (const Item& window : children(program))
            if (window.name == title && is(window, showing))
                return window;
    return std::nullopt;
}

std::vector<ScreenReader::Item> ScreenReader::controls(const Item& window) const
{
    std::vector<Item> all;
    collect(window, all);
    return all;
}

void ScreenReader::collect(const Item& item, std::vector<Item>& into) const
{
    for (const Item& child : children(item)) {
        if (!is(child, showing))
            continue;
        if (is(child, focusable) && is(child, enabled))
            into.push_back(child);
        collect(child, into);
    }
}

} // namespace Kovrel::Testing
