#include "app/foundation/LoginSwitch.h"

#include "platform/LoginItem.h"
#include "platform/ReplyFromWorker.h"

namespace Kovrel {

SettingBinding LoginSwitch::binding()
{
    return {.read = [this] { return m_isOn; },
            .write = [this](const QVariant& isOn) { set(isOn.toBool()); },
            .observe = [this](std::function<void()> changed) { return onChange(std::move(changed)); }};
}

void LoginSwitch::read()
{
    replyFromWorker<State>(
        m_foundation.loop, m_foundation.workers, Lane::utility,
        [item = m_foundation.desktop->loginItem()]() noexcept { return State{.isOn = item->isOn()}; },
        m_lifeline.guard([this](const State& state) { land(state); }));
}

void LoginSwitch::set(bool isOn)
{
    replyFromWorker<State>(
        m_foundation.loop, m_foundation.workers, Lane::utility,
        [item = m_foundation.desktop->loginItem(), isOn]() noexcept {
            const auto done = item->set(isOn);
            return State{.isOn = item->isOn(), .failure = done ? QString() : done.error()};
        },
        m_lifeline.guard([this](const State& state) { land(state); }));
}

void LoginSwitch::land(const State& state)
{
    m_isOn = state.isOn;
    m_failure = state.failure;
    m_changes.notify();
}

} // namespace Kovrel
