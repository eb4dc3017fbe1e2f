#include "ui/tokens/Motion.h"

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

constexpr auto variable = "KOVREL_REDUCED_MOTION";

} // namespace

Motion& Motion::shared()
{
    static Motion motion;
    return motion;
}

Motion::Motion() : m_isReduced(qgetenv(variable) == "1") {}

void Motion::setReduced(bool isReduced)
{
    if (qEnvironmentVariableIsEmpty(variable))
        m_isReduced = isReduced;
}

std::chrono::milliseconds Motion::appearing() const
{
    return m_isReduced ? 0ms : 160ms;
}

std::chrono::milliseconds Motion::disappearing() const
{
    return m_isReduced ? 0ms : 220ms;
}

std::chrono::milliseconds Motion::moving() const
{
    return m_isReduced ? 0ms : 280ms;
}

} // namespace Kovrel
