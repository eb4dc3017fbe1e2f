#include "picking/ColorLoupeController.h"

#include "model/HexColor.h"
#include "platform/ColorSampler.h"

#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.capture")

const std::unexpected noneWanted = std::unexpected(QString());

} // namespace

ColorLoupeController::ColorLoupeController(Services services)
    : m_services(services), m_freezing(services.pixels, services.ports)
{
}

ColorLoupeController::~ColorLoupeController()
{
    tearDown();
}

void ColorLoupeController::pick(Completion completion)
{
    abandon();
    m_completion = std::move(completion);
    m_notation = ColorNotation::hex;
    m_freezing.await([this] { freeze(); });
}

void ColorLoupeController::freeze()
{
    m_session = std::make_unique<LoupeSession>(
        m_services.platform,
        LoupeSession::Handlers{.onPick = [this](Point point) { pickAt(point); },
                               .onCancelled = [this](const QString& failure) { cancelled(failure); }});
    m_session->open();
}

void ColorLoupeController::pickAt(Point point)
{
    const auto hex = m_session ? m_session->hexAt(point) : std::nullopt;
    if (!hex)
        return;
    m_notation = m_session->notation();
    finish(*hex);
}

void ColorLoupeController::cancelled(const QString& failure)
{
    if (failure.isEmpty())
        finish(noneWanted);
    else
        fallBackToSystemSampler();
}

void ColorLoupeController::fallBackToSystemSampler()
{
    tearDown();
    if (!m_completion)
        return;
    qCInfo(log, "The desktop's own colour picker is asked");
    m_services.sampler.pick([this](const ColorSampler::Outcome& color) {
        finish(color ? PickedColor(HexColor::text(*color)) : std::unexpected(color.error()));
    });
}

bool ColorLoupeController::abandon()
{
    const bool changesScreen = m_session != nullptr;
    finish(noneWanted);
    return changesScreen;
}

void ColorLoupeController::tearDown()
{
    m_freezing.cancel();
    m_session.reset();
    m_services.sampler.cancel();
}

// Whoever asked finds the screen as it was.
void ColorLoupeController::finish(const PickedColor& hex)
{
    const auto completion = std::exchange(m_completion, nullptr);
    tearDown();
    if (completion)
        completion(hex);
}

} // namespace Kovrel
