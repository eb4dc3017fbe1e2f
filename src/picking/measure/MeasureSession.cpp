#include "picking/measure/MeasureSession.h"

#include "model/VirtualKeys.h"
#include "model/text/MeasureText.h"
#include "overlay/OverlayKeys.h"
#include "overlay/SelectionCursor.h"
#include "platform/Displays.h"
#include "platform/Guarded.h"
#include "platform/Pointer.h"
#include "platform/ReplyFromWorker.h"
#include "preferences/Preferences.h"

#include <QCoreApplication>

namespace Kovrel {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("MeasureSession", text);
}

} // namespace

MeasureSession::MeasureSession(Platform platform, Handlers handlers)
    : m_platform(platform),
      m_handlers(std::move(handlers)),
      m_overlay(platform.overlay, "measuring", keys(), overlayHandlers())
{
    askForPointer();
}

std::vector<OverlaySession::Key> MeasureSession::keys()
{
    std::vector<OverlaySession::Key> keys = OverlayKeys::arrows([this](QPoint step, KeyGrabs::Press) { moveBy(step); });
    const auto add = [&](quint32 key, const std::function<void()>& act) {
        keys.push_back({key, [act](KeyGrabs::Press) { act(); }});
    };
    add(VirtualKeys::escape, [this] { cancel(); });
    add(VirtualKeys::returnKey, [this] { take(); });
    add(VirtualKeys::enter, [this] { take(); });
    add(VirtualKeys::u, [this] { switchUnit(); });
    for (const quint32 more : {VirtualKeys::equal, VirtualKeys::keypadAdd})
        add(more, [this] { changeTolerance(1); });
    for (const quint32 less : {VirtualKeys::minus, VirtualKeys::keypadSubtract})
        add(less, [this] { changeTolerance(-1); });
    return keys;
}

OverlaySession::Handlers MeasureSession::overlayHandlers()
{
    return {
        .onOpened = [this](const OverlaySurfaces::Opened& opened) { this->opened(opened); },
        .onPointer = [this](const OverlayPointer& pointer) { pointerChanged(pointer); },
        .onInputsHandled = [this] { update(); },
        .onDesktopSwitch = [] {},
        .onCancelled = [this](const QString& failure) { cancel(failure); },
    };
}

void MeasureSession::open()
{
    m_overlay.open({.cursor = [](const Display& display) { return SelectionCursor::crosshair(display.scale); }});
    m_overlay.takeKeys();
}

void MeasureSession::askForPointer()
{
    m_platform.pointer.position(m_lifeline.guard([this](std::optional<PointerPosition> position) {
        if (m_aim.pointer() || !position)
            return;
        m_aim.point(position->rootPixel, false);
        update();
    }));
}

void MeasureSession::opened(const OverlaySurfaces::Opened& opened)
{
    const DisplayList displays = m_platform.overlay.displays.all();
    for (const FrozenScreen& screen : opened.screens)
        if (const Display* display = displayWithID(displays, screen.displayID))
            prepare(screen, *display);
    noteHint();
}

void MeasureSession::prepare(const FrozenScreen& screen, const Display& display)
{
    using Sampler = std::shared_ptr<const MeasureSampler>;
    const auto job = [image = screen.image]() -> Sampler { return std::make_shared<MeasureSampler>(image); };
    const auto prepared = [this, display](const Sampler& sampler) {
        if (!sampler)
            return;
        m_aim.add({display, sampler});
        update();
    };
    replyFromWorker<Sampler>(m_platform.overlay.loop, m_platform.workers, Lane::capture,
                             Guarded::orElse(job, Sampler()), m_lifeline.guard(prepared));
}

// Once, and then never again.
void MeasureSession::noteHint()
{
    m_showsHint = !m_platform.preferences.get(Settings::measureHintSeen);
    if (m_showsHint)
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
        pressed(pointer);
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

void MeasureSession::pressed(const OverlayPointer& pointer)
{
    if (pointer.button == Qt::LeftButton)
        m_aim.press(pointer.rootPixel);
    else
        cancel();
}

// The pointer goes there, and what is measured follows it as always.
void MeasureSession::moveBy(QPoint step)
{
    if (const auto pointer = m_aim.pointer())
        m_platform.overlay.surfaces.movePointer(*pointer + step);
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

void MeasureSession::cancel(const QString& failure)
{
    if (const auto onCancelled = std::exchange(m_handlers.onCancelled, nullptr))
        onCancelled(failure);
}

// --- What is shown

void MeasureSession::update()
{
    const auto shown = m_aim.shown();
    m_overlay.show([&](const Display& display) {
        if (!shown || shown->display.id != display.id)
            return OverlayScene();
        return MeasureScene::of(display, {shown->cross, shown->rect, unit(), hint()});
    });
}

QString MeasureSession::hint() const
{
    if (m_showsTolerance)
        return tr("Tolerance %1").arg(m_aim.tolerance());
    if (m_showsHint)
        return tr(
            "Drag for a rectangle  \u00b7  Click to copy  \u00b7  Wheel for tolerance  \u00b7  U for the unit  \u00b7  "
            "Esc to end");
    return {};
}

} // namespace Kovrel
