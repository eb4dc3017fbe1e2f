#include "welcome/FirstRun.h"

#include <algorithm>

namespace Kovrel {

using enum FirstRunStep;

FirstRun::FirstRun(bool isSignedIn) : m_steps{greeting, account, hotkeys, tryOut, done}, m_isSignedIn(isSignedIn)
{
    if (isSignedIn)
        std::erase(m_steps, account);
}

FirstRun::Action FirstRun::action() const
{
    if (step() == account && !m_isSignedIn)
        return Action::signIn;
    if (step() == tryOut && !m_hasCaptured)
        return Action::capture;
    return step() == done ? Action::finish : Action::goOn;
}

void FirstRun::goBack()
{
    if (canGoBack())
        --m_index;
}

void FirstRun::goOn()
{
    if (action() != Action::signIn && step() != done)
        ++m_index;
}

void FirstRun::setSignedIn(bool isSignedIn)
{
    const bool isNew = isSignedIn && !m_isSignedIn;
    m_isSignedIn = isSignedIn;
    if (isNew && step() == account)
        goOn();
    if (isSignedIn)
        return;
    if (std::ranges::find(m_steps, account) == m_steps.end())
        m_steps.insert(m_steps.begin() + 1, account);
    m_index = std::min<size_t>(m_index, 1);
}

} // namespace Kovrel
