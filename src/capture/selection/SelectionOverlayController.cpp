#include "capture/selection/SelectionOverlayController.h"

namespace Kovrel {

SelectionOverlayController::SelectionOverlayController(Platform platform) : m_platform(platform) {}

void SelectionOverlayController::prewarm()
{
    m_platform.surfaces.prewarm();
}

void SelectionOverlayController::expectSession()
{
    if (!m_session)
        m_platform.surfaces.expectOpening();
}

void SelectionOverlayController::begin(Mode mode, std::function<void(SelectionResult)> completion)
{
    m_kept.clear();
    m_session.reset();
    SelectionSession::Handlers handlers{
        .onModeChange = [this](Mode changed) { m_modeObservers.notify(changed); },
        .onFinished = [this, completion](SelectionResult result) { finish(std::move(result), completion); },
    };
    m_session = std::make_unique<SelectionSession>(m_platform, mode, std::move(handlers));
}

void SelectionOverlayController::applyFrozenImages()
{
    if (m_session) // not cancelled meanwhile
        m_session->open();
}

void SelectionOverlayController::reassertPresence()
{
    if (m_session)
        m_session->reassertPresence();
}

void SelectionOverlayController::cancel()
{
    if (m_session)
        m_session->cancel();
}

// The session goes before anybody hears of its result: what follows finds the screen as it was.
void SelectionOverlayController::finish(SelectionResult result, std::function<void(SelectionResult)> completion)
{
    m_isCommitting = true;
    auto session = std::exchange(m_session, nullptr);
    if (!std::holds_alternative<SelectionCancelled>(result))
        m_kept = session->takeFrozenScreens();
    session.reset();
    completion(std::move(result));
    m_isCommitting = false;
}

} // namespace Kovrel
