#include "toasts/ToastCountdown.h"

#include <algorithm>
#include <utility>

namespace Kovrel {

namespace {

constexpr double lingerPlain = 1.8;
constexpr double lingerTappable = 3.5;
constexpr double lingerAfterHold = 2.0; // at most: it was seen

double lingerOf(const ToastContent& content)
{
    return content.dwell.value_or(content.onTap ? lingerTappable : lingerPlain);
}

} // namespace

void ToastCountdown::begin(const ToastContent& content)
{
    m_linger = lingerOf(content);
    m_endsByItself = !content.showsSpinner;
    arm({});
}

void ToastCountdown::arm(std::optional<double> seconds)
{
    cancel();
    if (!m_endsByItself || m_isHeld)
        return;
    m_end = m_loop.after(std::chrono::milliseconds(qint64(1000 * seconds.value_or(m_linger))), [this] {
        m_end = 0;
        m_onEnd();
    });
}

void ToastCountdown::setHeld(bool isHeld)
{
    if (std::exchange(m_isHeld, isHeld) == isHeld)
        return;
    if (isHeld)
        cancel();
    else
        arm(std::min(m_linger, lingerAfterHold));
}

void ToastCountdown::cancel()
{
    m_loop.cancel(std::exchange(m_end, 0));
}

} // namespace Kovrel
