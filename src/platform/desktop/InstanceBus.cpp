#include "platform/desktop/InstanceBus.h"

#include "platform/desktop/DBusConnectionLoss.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDBusVirtualObject>

namespace Kovrel {

namespace {

constexpr const char* busName = "com.kovrel.Kovrel";
constexpr const char* objectPath = "/com/kovrel/Kovrel";
constexpr const char* applicationInterface = "org.freedesktop.Application";
constexpr const char* notificationInterface = "com.kovrel";

constexpr int patienceMilliseconds = 5000;

constexpr const char* introspection = R"(
  <interface name="org.freedesktop.Application">
    <method name="Activate"><arg type="a{sv}" name="platform_data" direction="in"/></method>
    <method name="Open">
      <arg type="as" name="uris" direction="in"/><arg type="a{sv}" name="platform_data" direction="in"/>
    </method>
    <method name="ActivateAction">
      <arg type="s" name="action_name" direction="in"/><arg type="av" name="parameter" direction="in"/>
      <arg type="a{sv}" name="platform_data" direction="in"/>
    </method>
  </interface>
  <interface name="com.kovrel.Kovrel">
    <method name="Run">
      <arg type="as" name="arguments" direction="in"/>
      <arg type="i" name="exit_code" direction="out"/><arg type="s" name="output" direction="out"/>
      <arg type="s" name="error" direction="out"/>
    </method>
    <signal name="Accepted"/>
    <method name="Quit"><arg type="s" name="reason" direction="in"/></method>
  </interface>
  <interface name="com.kovrel">
    <signal name="captureFinished">
      <arg type="s" name="id"/><arg type="s" name="mode"/><arg type="i" name="width"/><arg type="i" name="height"/>
    </signal>
  </interface>
)";

// Whether the arguments are those that the introspection tells; also of a method that there isn't.
bool hasExpectedTypes(const QDBusMessage& message)
{
    static const QHash<QString, QString> signatures{
        {"Run", "as"}, {"Quit", "s"}, {"Activate", "a{sv}"}, {"Open", "asa{sv}"}, {"ActivateAction", "sava{sv}"}};
    const auto expected = signatures.constFind(message.member());
    return expected == signatures.constEnd() || message.signature() == *expected;
}

} // namespace

class InstanceBus::Service : public QDBusVirtualObject {
public:
    explicit Service(Handlers handlers) : m_handlers(std::move(handlers))
    {
        m_callers.setConnection(QDBusConnection::sessionBus());
        m_callers.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
        connect(&m_callers, &QDBusServiceWatcher::serviceUnregistered, this, &Service::callerVanished);
    }

    // What comes now is for the next instance: whoever asked is told that there is none.
    void release() { m_isReleased = true; }

    QString introspect(const QString&) const override { return introspection; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        if (m_isReleased) {
            connection.send(message.createErrorReply(QDBusError::ServiceUnknown, "Kovrel is about to end"));
            return true;
        }
        if (!hasExpectedTypes(message)) {
            connection.send(message.createErrorReply(QDBusError::InvalidArgs, "the arguments are of other types"));
            return true;
        }
        const QString method = message.member();
        const QVariantList arguments = message.arguments();
        if (message.interface() == QLatin1StringView(busName) && method == "Run" && arguments.size() == 1) {
            run(message, connection);
            return true;
        }
        if (!dispatch(message.interface(), method, arguments))
            return false;
        connection.send(message.createReply());
        return true;
    }

private:
    bool dispatch(const QString& interface, const QString& method, const QVariantList& arguments)
    {
        if (interface == QLatin1StringView(busName) && method == "Quit" && arguments.size() == 1) {
            m_handlers.quit(arguments[0].toString());
            return true;
        }
        return interface == QLatin1StringView(applicationInterface) && dispatchToApplication(method, arguments);
    }

    bool dispatchToApplication(const QString& method, const QVariantList& arguments)
    {
        if (method == "Activate")
            m_handlers.activate();
        else if (method == "Open" && !arguments.isEmpty())
            m_handlers.open(arguments[0].toStringList());
        else if (method == "ActivateAction" && !arguments.isEmpty())
            m_handlers.activateAction(arguments[0].toString());
        else
            return false;
        return true;
    }

    void run(const QDBusMessage& message, QDBusConnection connection)
    {
        message.setDelayedReply(true);
        connection.send(QDBusMessage::createTargetedSignal(message.service(), objectPath, busName, "Accepted"));
        const quint64 requestID = ++m_lastRequest;
        m_waiting.insert(requestID, message.service());
        m_callers.addWatchedService(message.service());
        m_handlers.run(message.arguments().first().toStringList(), requestID,
                       [this, requestID, message, connection](const CommandAnswer& answer) {
                           forget(requestID);
                           connection.send(message.createReply({answer.exitCode, answer.output, answer.error}));
                       });
    }

    void forget(quint64 requestID)
    {
        const QString caller = m_waiting.take(requestID);
        if (m_waiting.keys(caller).isEmpty())
            m_callers.removeWatchedService(caller);
    }

    void callerVanished(const QString& caller)
    {
        for (const quint64 requestID : m_waiting.keys(caller)) {
            forget(requestID);
            m_handlers.callerVanished(requestID);
        }
    }

    Handlers m_handlers;
    DBusConnectionLoss m_loss{[this] { m_handlers.quit("the session bus has gone"); }};
    QDBusServiceWatcher m_callers;
    QHash<quint64, QString> m_waiting; // request to the caller's unique name
    quint64 m_lastRequest = 0;
    bool m_isReleased = false;
};

InstanceBus::InstanceBus() = default;

InstanceBus::~InstanceBus()
{
    if (!m_service)
        return;
    QDBusConnection::sessionBus().unregisterObject(objectPath);
    QDBusConnection::sessionBus().unregisterService(busName);
}

InstanceBus::Claim InstanceBus::claim(Handlers handlers)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return Claim::noBus;
    m_service = std::make_unique<Service>(std::move(handlers));
    bus.registerVirtualObject(objectPath, m_service.get());
    if (bus.registerService(busName))
        return Claim::owned;
    m_service.reset();
    return Claim::taken;
}

void InstanceBus::release()
{
    if (!m_service)
        return;
    m_service->release();
    QDBusConnection::sessionBus().unregisterService(busName);
}

void InstanceBus::activateOwner()
{
    QDBusMessage call = QDBusMessage::createMethodCall(busName, objectPath, applicationInterface, "Activate");
    call << QVariantMap();
    QDBusConnection::sessionBus().call(call, QDBus::Block, patienceMilliseconds);
}

void InstanceBus::announceCaptureFinished(const QString& id, const QString& mode, int width, int height)
{
    if (!m_service)
        return;
    QDBusMessage news = QDBusMessage::createSignal(objectPath, notificationInterface, "captureFinished");
    news << id << mode << width << height;
    QDBusConnection::sessionBus().send(news);
}

} // namespace Kovrel
