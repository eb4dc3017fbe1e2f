#include "historywindow/HistoryWindows.h"

namespace Kovrel {

HistoryWindow& HistoryWindows::window()
{
    if (!m_window)
        m_window = std::make_unique<HistoryWindow>(m_services);
    return *m_window;
}

void HistoryWindows::prewarm()
{
    window().ensurePolished();
}

void HistoryWindows::showWindow()
{
    window().present();
}

void HistoryWindows::toggleStrip(const Display& display)
{
    if (!m_strip)
        m_strip = std::make_unique<HistoryStrip>(m_services);
    if (m_strip->isVisible())
        m_strip->hide();
    else
        m_strip->presentOn(display);
}

bool HistoryWindows::setHiddenForCapture(bool isHidden)
{
    const bool hidesStrip = isHidden && m_strip && m_strip->isVisible();
    if (hidesStrip)
        m_strip->hide();
    const bool changesWindow = m_window && m_aside.set(*m_window, isHidden);
    return changesWindow || hidesStrip;
}

} // namespace Kovrel
