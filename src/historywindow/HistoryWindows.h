#pragma once

#include "historywindow/HistoryStrip.h"
#include "historywindow/HistoryWindow.h"
#include "ports/CaptureChrome.h"
#include "ui/Aside.h"

#include <memory>

namespace Kovrel {

// The window and the strip: made when they are wanted first, and out of the way of captures. Main thread.
class HistoryWindows : public CaptureChrome {
public:
    explicit HistoryWindows(HistoryViewServices services) : m_services(std::move(services)) {}

    // Makes the window, so that it comes at once.
    void prewarm();
    void showWindow();
    // Shown already, it goes.
    void toggleStrip(const Display& display);

    bool setHiddenForCapture(bool isHidden) override;

private:
    HistoryWindow& window();

    HistoryViewServices m_services;
    std::unique_ptr<HistoryWindow> m_window;
    std::unique_ptr<HistoryStrip> m_strip;
    Aside m_aside; // where the window is while a capture runs
};

} // namespace Kovrel
