#include "updates/UpdateCheck.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"
#include "updates/PackageVersion.h"

#include <QLoggingCategory>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.updates")

constexpr auto afterStart = 10min; // neither a log-in nor the rest after it is disturbed
constexpr auto interval = 24h;
constexpr const char* package = "kovrel";

} // namespace

UpdateCheck::UpdateCheck(Services services, QString version)
    : m_services(std::move(services)), m_version(std::move(version))
{
}

UpdateCheck::~UpdateCheck()
{
    stop();
}

void UpdateCheck::start()
{
    m_settingChanges = m_services.preferences.defaults().onChange([this](const QString& key) {
        if (key == Settings::checksForUpdates.name)
            followSetting();
    });
    followSetting();
}

void UpdateCheck::stop()
{
    m_services.loop.cancel(std::exchange(m_timer, 0));
    m_stop.request_stop();
}

void UpdateCheck::followSetting()
{
    m_services.loop.cancel(std::exchange(m_timer, 0));
    if (m_services.preferences.get(Settings::checksForUpdates))
        schedule(afterStart);
    else
        setNewer(std::nullopt);
}

void UpdateCheck::schedule(MainLoop::Milliseconds delay)
{
    m_timer = m_services.loop.after(delay, [this] { ask(); });
}

void UpdateCheck::ask()
{
    schedule(interval);
    const auto job = [packages = m_services.packages, stop = m_stop.get_token()] {
        return packages->versions(package, stop);
    };
    replyFromWorker<Answer>(m_services.loop, m_services.workers, Lane::packages, QualityOfService::background,
                            Guarded::orReason(job),
                            m_lifeline.guard([this](const Answer& versions) { land(versions); }));
}

// What was known stays known until there is another answer.
void UpdateCheck::land(const Answer& versions)
{
    if (m_stop.stop_requested() || !m_services.preferences.get(Settings::checksForUpdates))
        return;
    if (versions)
        setNewer(PackageVersion::newest(*versions, m_version));
    else
        qCInfo(log, "Whether there is a newer version is not known: %s", qUtf8Printable(versions.error()));
}

void UpdateCheck::setNewer(std::optional<QString> version)
{
    if (std::exchange(m_newer, version) != version)
        m_changes.notify();
}

} // namespace Kovrel
