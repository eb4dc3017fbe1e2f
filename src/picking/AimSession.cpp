#include "picking/AimSession.h"

#include "model/VirtualKeys.h"
#include "overlay/OverlayKeys.h"
#include "overlay/SelectionCursor.h"
#include "platform/Displays.h"
#include "platform/Pointer.h"

namespace Kovrel {

AimSession::AimSession(Platform platform, QString name, std::vector<OverlaySession::Key> keys, Handlers handlers)
    : m_platform(platform),
      m_handlers(std::move(handlers)),
      m_overlay(platform.overlay, std::move(name), withUsual(std::move(keys)), overlayHandlers())
{
    askForPointer();
}

std::vector<OverlaySession::Key> AimSession::withUsual(std::vector<OverlaySession::Key> keys)
{
    for (auto& arrow : OverlayKeys::arrows([this](QPoint step, KeyGrabs::Press) { moveBy(step); }))
        keys.push_back(std::move(arrow));
    for (const quint32 key : {VirtualKeys::returnKey, VirtualKeys::enter})
        keys.push_back({key, [this](KeyGrabs::Press) { take(); }});
    keys.push_back({.keyCode = VirtualKeys::escape,
                    .onPress = [this](KeyGrabs::Press) { cancel(); },
                    .logName = "Esc+any modifiers"});
    return keys;
}

OverlaySession::Handlers AimSession::overlayHandlers()
{
    return {
        .onOpened = [this](const OverlaySurfaces::Opened& opened) { this->opened(opened); },
        .onPointer = [this](const OverlayPointer& pointer) { pointerChanged(pointer); },
        .onInputsHandled = m_handlers.onChanged,
        .onDesktopSwitch = [] {},
        .onCancelled = [this](const QString& failure) { cancel(failure); },
    };
}

void AimSession::open()
{
    m_overlay.open({.cursor = [](const Display& display) { return SelectionCursor::crosshair(display.scale); }});
    m_overlay.takeKeys();
}

void AimSession::askForPointer()
{
    m_platform.pointer.position(m_lifeline.guard([this](std::optional<PointerPosition> position) {
        if (m_pointer || !position)
            return;
        pointerChanged({.rootPixel = position->rootPixel});
        m_handlers.onChanged();
    }));
}

void AimSession::opened(const OverlaySurfaces::Opened& opened)
{
    const DisplayList displays = m_platform.overlay.displays.all();
    for (const FrozenScreen& screen : opened.screens)
        if (const Display* display = displayWithID(displays, screen.displayID))
            m_handlers.onFrozen(*display, screen.image);
    m_handlers.onChanged();
}

void AimSession::pointerChanged(const OverlayPointer& pointer)
{
    m_pointer = pointer.rootPixel;
    if (pointer.kind == OverlayPointer::Kind::press && pointer.button == Qt::RightButton)
        return cancel();
    const auto onPointer = m_handlers.onPointer; // it may end the session
    onPointer(pointer);
}

// The pointer goes there, and tells of it as always.
void AimSession::moveBy(QPoint step)
{
    if (m_pointer)
        m_platform.overlay.surfaces.movePointer(*m_pointer + step);
}

void AimSession::take()
{
    const auto onTake = m_handlers.onTake; // it may end the session
    onTake();
}

void AimSession::cancel(const QString& failure)
{
    if (const auto onCancelled = std::exchange(m_handlers.onCancelled, nullptr))
        onCancelled(failure);
}

} // namespace Kovrel
