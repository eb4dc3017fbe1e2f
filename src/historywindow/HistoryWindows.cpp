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
    if (!m_window)
        return false;
    if (!isHidden) {
        m_window->setVisible(m_wasVisible || m_window->isVisible());
        return std::exchange(m_wasVisible, false);
    }
    const bool wasStripVisible = m_strip && m_strip->isVisible();
    if (wasStripVisible)
        m_strip->hide();
    m_wasVisible = m_window->isVisible() && !m_window->isMinimized();
    if (m_wasVisible)
        m_window->hide();
    return m_wasVisible || wasStripVisible;
}

} // namespace Kovrel
