#include "picking/ScreenTurn.h"

#include "platform/ScreenPixels.h"
#include "ports/Captures.h"

namespace Kovrel {

void ScreenTurn::await(std::function<void()> start)
{
    m_waiting = std::make_unique<Lifeline>();
    const auto begin = m_waiting->guard([this, start = std::move(start)](bool) {
        cancel();
        start();
    });
    const auto repaint = m_waiting->guard([this, begin] { m_pixels.whenRepainted(begin); });
    const Port<Captures>& captures = m_ports.captures;
    captures.tell(&Captures::cancelAim);
    if (captures)
        captures->whenForegroundIsFree(repaint);
    else
        repaint();
}

} // namespace Kovrel
