#pragma once

#include "capture/CaptureServices.h"
#include "platform/Scope.h"

#include <QCoreApplication>

namespace Kovrel {

// The countdown before a timed capture, with its toast. Escape ends it from anywhere. Main thread.
class SelfTimer {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::SelfTimer)

public:
    explicit SelfTimer(CaptureServices& services);
    ~SelfTimer();

    // True once the seconds that the user chose are over, false when cancelled. The toast then fades out.
    QCoro::Task<bool> countDown(std::optional<quint32> displayID);

    bool isCountingDown() const { return bool(m_endOfSecond); }

    void cancel();

private:
    Wait<bool> oneSecond();

    CaptureServices& m_services;
    MainLoop::TimerID m_secondTimer = 0;
    Reply<bool> m_endOfSecond; // set while counting down; told whether to go on
    Scope m_scope;
};

} // namespace Kovrel
