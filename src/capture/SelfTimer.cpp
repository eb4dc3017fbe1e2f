#include "capture/SelfTimer.h"

#include "model/VirtualKeys.h"
#include "platform/KeyGrabs.h"
#include "ports/Toasts.h"
#include "preferences/Preferences.h"

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

constexpr KeyCombo escape{VirtualKeys::escape};
constexpr double untilUpdated = 3600; // the count keeps the toast up, not its linger

ToastContent countToast(int seconds, const std::shared_ptr<bool>& isClosed)
{
    return {.message = SelfTimer::tr("Capturing in %1\u2026").arg(seconds),
            .icon = "timer",
            .onClose = [isClosed] { *isClosed = true; },
            .dwell = untilUpdated};
}

} // namespace

SelfTimer::SelfTimer(CaptureServices& services) : m_services(services), m_scope(services.loop, services.workers) {}

SelfTimer::~SelfTimer()
{
    m_services.loop.cancel(m_secondTimer);
}

void SelfTimer::cancel()
{
    m_services.loop.cancel(m_secondTimer);
    if (const auto end = std::exchange(m_endOfSecond, nullptr))
        end(false);
}

QCoro::Task<bool> SelfTimer::countDown(std::optional<quint32> displayID)
{
    const auto grab = m_services.keys.grab(escape, {.onPress = [this](KeyGrabs::Press) { cancel(); }});
    const auto atEnd = qScopeGuard([this, grab] {
        if (grab)
            m_services.keys.release(*grab);
        m_services.ports.toasts.tell(&Toasts::dismiss, true);
    });
    int remaining = m_services.preferences.selfTimerSeconds();
    const auto isClosed = std::make_shared<bool>(false); // the count goes on without its toast
    m_services.ports.toasts.tell(&Toasts::present, countToast(remaining, isClosed), displayID, false);
    while (remaining > 0) {
        const bool goesOn = co_await oneSecond();
        if (!goesOn)
            co_return false;
        if (--remaining > 0 && !*isClosed)
            m_services.ports.toasts.tell(&Toasts::update, countToast(remaining, isClosed), false);
    }
    co_return true;
}

Wait<bool> SelfTimer::oneSecond()
{
    return m_scope.reply<bool>([this](Reply<bool> done) {
        m_endOfSecond = done;
        m_secondTimer = m_services.loop.after(1s, [this] { std::exchange(m_endOfSecond, nullptr)(true); });
    });
}

} // namespace Kovrel
