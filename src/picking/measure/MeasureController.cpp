#include "picking/measure/MeasureController.h"

namespace Kovrel {

MeasureController::MeasureController(Services services)
    : m_services(services), m_freezing(services.pixels, services.ports)
{
}

MeasureController::~MeasureController() = default;

void MeasureController::measure(Completion completion)
{
    abandon();
    m_completion = std::move(completion);
    m_freezing.await([this] { freeze(); });
}

void MeasureController::freeze()
{
    m_session = std::make_unique<MeasureSession>(
        m_services.platform,
        MeasureSession::Handlers{.onTaken = [this](const QString& reading) { finish(reading); },
                                 .onCancelled = [this](const QString& failure) { finish(std::unexpected(failure)); }});
    m_session->open();
}

bool MeasureController::abandon()
{
    const bool changesScreen = m_session != nullptr;
    finish(std::unexpected(QString()));
    return changesScreen;
}

// Whoever asked finds the screen as it was.
void MeasureController::finish(const Outcome& outcome)
{
    const Outcome told = outcome;
    const auto completion = std::exchange(m_completion, nullptr);
    m_freezing.cancel();
    m_session.reset();
    if (completion)
        completion(told);
}

} // namespace Kovrel
