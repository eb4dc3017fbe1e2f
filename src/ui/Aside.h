#pragma once

#include <QWidget>

#include <utility>

namespace Kovrel {

// A window that steps aside for a while, as for a capture. Main thread.
class Aside {
public:
    // Hides the window where it is seen, or shows it again where this has hidden it. Answers whether the screen changes
    // by it.
    bool set(QWidget& window, bool isAside)
    {
        if (!isAside) {
            if (m_hasHidden)
                window.show();
            return std::exchange(m_hasHidden, false);
        }
        const bool isSeen = window.isVisible() && !window.isMinimized();
        if (isSeen)
            window.hide();
        m_hasHidden |= isSeen;
        return isSeen;
    }

private:
    bool m_hasHidden = false;
};

} // namespace Kovrel
