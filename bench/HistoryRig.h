#pragma once

#include "bench/HistorySample.h"
#include "historywindow/HistoryWindow.h"
#include "platform/desktop/QtMainLoop.h"
#include "platform/desktop/ThreadWorkers.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/TempFolder.h"

namespace Kovrel::Bench {

// The windows of the history over a real store in a folder of its own, on the real loop and workers. Needs a
// QApplication.
class HistoryRig {
public:
    HistoryRig(int count, const std::vector<QImage>& pictures);
    ~HistoryRig();

    HistoryViewServices services();

    const HistoryState& state() const { return m_state; }

    HistoryTextIndex& index() { return m_index; }

    // Handles events until it is true, at most so long; answers whether it is.
    static bool waitUntil(const std::function<bool()>& isTrue, int milliseconds = 10000);

private:
    Testing::TempFolder m_folder;
    HistoryFiles m_files{m_folder / "History"};
    HistoryState m_state;
    UserDefaults m_defaults{m_folder / "settings.conf"};
    Preferences m_preferences{m_defaults};
    QtMainLoop m_loop;
    ThreadWorkers m_workers;
    Testing::FakeMainLoop m_desktopLoop;
    Testing::FakeDesktop m_desktop{m_desktopLoop};
    Ports m_ports;
    CaptureOCRStore m_ocr;
    CaptureHistoryStore m_store;
    HistoryTextIndex m_index;
    HistoryActions m_actions;
};

} // namespace Kovrel::Bench
