#pragma once

#include "capture/selection/SelectionSession.h"

#include <memory>

namespace Kovrel {

// One selection at a time, over all displays, each with exactly one result. Main thread.
class SelectionOverlayController : public SelectionOverlay {
public:
    using Platform = SelectionSession::Platform;

    explicit SelectionOverlayController(Platform platform);

    void prewarm();
    // The user may be about to begin.
    void expectSession();

    void begin(Mode mode, std::function<void(SelectionResult)> completion) override;

    Subscription onModeChange(std::function<void(Mode)> callback) override
    {
        return m_modeObservers.add(std::move(callback));
    }

    void applyFrozenImages() override;

    FrozenScreens takeFrozenImages() override { return std::exchange(m_kept, {}); }

    void reassertPresence() override;
    void cancel() override;

    bool isCommitting() const override { return m_isCommitting; }

private:
    void finish(SelectionResult result, std::function<void(SelectionResult)> completion);

    Platform m_platform;
    Observers<Mode> m_modeObservers;
    std::unique_ptr<SelectionSession> m_session;
    FrozenScreens m_kept; // of the session that ended with a result
    bool m_isCommitting = false;
};

} // namespace Kovrel
