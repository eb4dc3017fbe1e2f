#include "picking/measure/MeasureSession.h"

#include "model/VirtualKeys.h"
#include "model/text/MeasureText.h"
#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"
#include "preferences/Preferences.h"

#include <QCoreApplication>

namespace Kovrel {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(MeasureSession)
};

} // namespace

MeasureSession::MeasureSession(Platform platform, Handlers handlers)
    : m_platform(platform), m_handlers(std::move(handlers)), m_session(platform.aim, "measuring", keys(), aimHandlers())
{
}

std::vector<OverlaySession::Key> MeasureSession::keys()
{
    std::vector<OverlaySession::Key> keys;
    const auto add = [&](quint32 key, const std::function<void()>& act) {
        keys.push_back({key, [act](KeyGrabs::Press) { act(); }});
    };
    add(VirtualKeys::u, [this] { switchUnit(); });
    for (const quint32 more : {VirtualKeys::equal, VirtualKeys::keypadAdd})
        add(more, [this] { changeTolerance(1); });
    for (const quint32 less : {VirtualKeys::minus, VirtualKeys::keypadSubtract})
        add(less, [this] { changeTolerance(-1); });
    return keys;
}

AimSession::Handlers MeasureSession::aimHandlers()
{
    return {
        .onFrozen =
            [this](const Display& display, const QImage& image) {
                prepare(display, image);
                noteHint();
            },
        .onPointer = [this](const OverlayPointer& pointer) { pointerChanged(pointer); },
        .onTake = [this] { take(); },
        .onChanged = [this] { update(); },
        .onCancelled = m_handlers.onCancelled,
    };
}

void MeasureSession::prepare(const Display& display, const QImage& image)
{
    using Sampler = std::shared_ptr<const MeasureSampler>;
    const auto job = [image]() -> Sampler { return std::make_shared<MeasureSampler>(image); };
    const auto prepared = [this, display](const Sampler& sampler) {
        if (!sampler)
            return;
        m_aim.add({display, sampler});
        update();
    };
    replyFromWorker<Sampler>(m_platform.aim.overlay.loop, m_platform.workers, Lane::capture,
                             Guarded::orElse(job, Sampler()), m_lifeline.guard(prepared));
}

// In one session, and then never again.
void MeasureSession::noteHint()
{
    if (m_platform.preferences.get(Settings::measureHintSeen))
        return;
    m_showsHint = true;
    m_platform.preferences.set(Settings::measureHintSeen, true);
}

// --- What the user does

void MeasureSession::pointerChanged(const OverlayPointer& pointer)
{
    switch (pointer.kind) {
    case OverlayPointer::Kind::move:
        m_showsTolerance = false;
        m_aim.point(pointer.rootPixel, pointer.isAltDown);
        break;
    case OverlayPointer::Kind::press:
        m_aim.press(pointer.rootPixel);
        break;
    case OverlayPointer::Kind::release:
        if (pointer.button == Qt::LeftButton && m_aim.release(pointer.rootPixel, pointer.isAltDown))
            take();
        break;
    case OverlayPointer::Kind::scroll:
        changeTolerance(pointer.scrolled);
        break;
    }
}

void MeasureSession::changeTolerance(int steps)
{
    m_aim.changeTolerance(steps);
    m_showsTolerance = true;
}

MeasureUnit MeasureSession::unit() const
{
    return m_platform.preferences.get(Settings::measureUnit);
}

void MeasureSession::switchUnit()
{
    const auto other = unit() == MeasureUnit::pixels ? MeasureUnit::points : MeasureUnit::pixels;
    m_platform.preferences.set(Settings::measureUnit, other);
}

void MeasureSession::take()
{
    const auto shown = m_aim.shown();
    if (!shown)
        return;
    const auto onTaken = m_handlers.onTaken; // it may end the session
    onTaken(MeasureText::size(shown->size(), unit(), shown->display.scale));
}

// --- What is shown

void MeasureSession::update()
{
    const auto shown = m_aim.shown();
    m_session.show([&](const Display& display) {
        if (!shown || shown->display.id != display.id)
            return OverlayScene();
        return MeasureScene::of(display, {shown->cross, shown->rect, unit(), hint()});
    });
}

QString MeasureSession::hint() const
{
    if (m_showsTolerance)
        return Texts::tr("Tolerance %1").arg(m_aim.tolerance());
    if (m_showsHint)
        return Texts::tr(
            "Drag for a rectangle  \u00b7  Click to copy  \u00b7  Wheel for tolerance  \u00b7  U for the unit  \u00b7  "
            "Esc to end");
    return {};
}

} // namespace Kovrel
