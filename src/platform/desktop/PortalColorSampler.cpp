#include "platform/desktop/PortalColorSampler.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QLoggingCategory>

#include <algorithm>
#include <array>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.desktop")

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* folder = "/org/freedesktop/portal/desktop";
constexpr const char* requestInterface = "org.freedesktop.portal.Request";
constexpr int acceptanceMilliseconds = 5000; // the user is asked only afterwards
constexpr std::chrono::minutes longestChoice{2};
constexpr uint picked = 0; // what the portal answers; any other number is a failure
constexpr uint cancelled = 1;
constexpr const char* noColor = "what the desktop's colour picker gave is no colour";

// Where the portal is going to answer: known before it is asked, so that no answer is missed.
QString requestPath(const QString& token)
{
    const QString sender = QDBusConnection::sessionBus().baseService().mid(1).replace('.', '_');
    return QString("%1/request/%2/%3").arg(folder, sender, token);
}

QDBusMessage pickColor(const QString& token)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, folder, "org.freedesktop.portal.Screenshot", "PickColor");
    call << QString() << QVariantMap{{"handle_token", token}};
    return call;
}

ColorSampler::Outcome colorIn(const QVariantMap& results)
{
    const auto argument = results.value("color").value<QDBusArgument>();
    if (argument.currentSignature() != "(ddd)")
        return std::unexpected(noColor);
    std::array<double, 3> channels{};
    argument.beginStructure();
    argument >> channels[0] >> channels[1] >> channels[2];
    argument.endStructure();
    if (!std::ranges::all_of(channels, [](double channel) { return channel >= 0 && channel <= 1; }))
        return std::unexpected(noColor);
    QColor color;
    color.setRgbF(float(channels[0]), float(channels[1]), float(channels[2]));
    return color;
}

} // namespace

PortalColorSampler::PortalColorSampler(MainLoop& loop)
    : m_loop(loop), m_portal(service, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForUnregistration)
{
    connect(&m_portal, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { finish(std::unexpected("the desktop's colour picker has ended")); });
}

PortalColorSampler::~PortalColorSampler()
{
    PortalColorSampler::cancel();
}

void PortalColorSampler::pick(Reply<Outcome> reply)
{
    cancel();
    m_reply = std::move(reply);
    const QString token = QString("kovrel%1").arg(++m_count);
    listenTo(requestPath(token));
    m_patience = m_loop.after(longestChoice, [this] {
        const auto reply = m_reply;
        cancel();
        reply(std::unexpected(QString()));
    });
    auto* const watcher = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(pickColor(token), acceptanceMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, asked = m_count] {
        if (asked == m_count && m_reply)
            accepted(*watcher);
        watcher->deleteLater();
    });
}

void PortalColorSampler::accepted(const QDBusPendingReply<QDBusObjectPath>& request)
{
    if (request.isError()) {
        qCInfo(log, "The desktop has no colour picker: %s", qUtf8Printable(request.error().message()));
        finish(std::unexpected("the desktop has no colour picker either"));
    } else if (request.value().path() != m_request) {
        listenTo(request.value().path()); // an old portal chooses the path itself
    }
}

void PortalColorSampler::listenTo(const QString& request)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!m_request.isEmpty())
        bus.disconnect({}, m_request, requestInterface, "Response", this, SLOT(responded(uint, QVariantMap)));
    m_request = request;
    if (!m_request.isEmpty())
        bus.connect({}, m_request, requestInterface, "Response", this, SLOT(responded(uint, QVariantMap)));
}

void PortalColorSampler::responded(uint response, const QVariantMap& results)
{
    if (response == picked)
        finish(colorIn(results));
    else
        finish(std::unexpected(QString(response == cancelled ? "" : "the desktop's colour picker has failed")));
}

void PortalColorSampler::finish(const Outcome& outcome)
{
    const auto reply = std::exchange(m_reply, nullptr);
    listenTo({});
    m_loop.cancel(std::exchange(m_patience, 0));
    if (reply)
        reply(outcome);
}

void PortalColorSampler::cancel()
{
    if (!m_reply)
        return;
    const QDBusMessage close = QDBusMessage::createMethodCall(service, m_request, requestInterface, "Close");
    QDBusConnection::sessionBus().asyncCall(close);
    m_reply = nullptr;
    finish(std::unexpected(QString()));
}

} // namespace Kovrel
