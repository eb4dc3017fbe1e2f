#include "picking/LoupeSession.h"

#include "model/VirtualKeys.h"
#include "overlay/OverlayKeys.h"
#include "overlay/SelectionCursor.h"
#include "picking/ColorLoupeGeometry.h"
#include "picking/ColorLoupeSampler.h"
#include "picking/ColorText.h"
#include "platform/Displays.h"
#include "platform/Pointer.h"

#include <algorithm>

namespace Kovrel {

LoupeSession::LoupeSession(Platform platform, Handlers handlers)
    : m_platform(platform),
      m_handlers(std::move(handlers)),
      m_overlay(platform.overlay, "loupe", keys(), overlayHandlers())
{
    askForPointer();
}

std::vector<OverlaySession::Key> LoupeSession::keys()
{
    std::vector<OverlaySession::Key> keys = OverlayKeys::arrows([this](QPoint step, KeyGrabs::Press) { moveBy(step); });
    keys.push_back({.keyCode = VirtualKeys::escape,
                    .onPress = [this](KeyGrabs::Press) { cancel(); },
                    .logName = "Esc+any modifiers"});
    for (const quint32 key : {VirtualKeys::returnKey, VirtualKeys::enter})
        keys.push_back({key, [this](KeyGrabs::Press) { pick(); }});
    for (const quint32 key : {VirtualKeys::c, VirtualKeys::tab})
        keys.push_back({key, [this](KeyGrabs::Press press) { nextNotation(press); }});
    return keys;
}

OverlaySession::Handlers LoupeSession::overlayHandlers()
{
    return {
        .onOpened = [this](const OverlaySurfaces::Opened& opened) { this->opened(opened); },
        .onPointer = [this](const OverlayPointer& pointer) { pointerChanged(pointer); },
        .onInputsHandled = [this] { update(); },
        .onDesktopSwitch = [] {},
        .onCancelled = [this](const QString& failure) { cancel(failure); },
    };
}

void LoupeSession::open()
{
    m_overlay.open({.cursor = [](const Display& display) { return SelectionCursor::crosshair(display.scale); }});
    m_overlay.takeKeys();
}

void LoupeSession::askForPointer()
{
    m_platform.pointer.position(m_lifeline.guard([this](std::optional<PointerPosition> position) {
        if (m_pointer || !position)
            return;
        m_pointer = position->rootPixel;
        update();
    }));
}

void LoupeSession::opened(const OverlaySurfaces::Opened& opened)
{
    const DisplayList displays = m_platform.overlay.displays.all();
    for (const FrozenScreen& screen : opened.screens)
        if (const Display* display = displayWithID(displays, screen.displayID))
            m_stills[display->id] = {*display, screen.image};
    update();
}

std::optional<QString> LoupeSession::hexAt(Point point) const
{
    const auto holds = [&](const auto& still) { return still.second.display.frame.contains(point); };
    const auto found = std::ranges::find_if(m_stills, holds);
    if (found == m_stills.end())
        return std::nullopt;
    const auto pixel = ColorLoupeGeometry::pixel(point, found->second);
    return pixel ? ColorLoupeSampler::hex(found->second.image, pixel->x(), pixel->y()) : std::nullopt;
}

// --- What the user does

void LoupeSession::pointerChanged(const OverlayPointer& pointer)
{
    m_pointer = pointer.rootPixel;
    switch (pointer.kind) {
    case OverlayPointer::Kind::move:
        break;
    case OverlayPointer::Kind::press:
        m_isPressed = pointer.button == Qt::LeftButton;
        if (pointer.button == Qt::RightButton)
            cancel();
        break;
    case OverlayPointer::Kind::release:
        released(pointer.button);
        break;
    case OverlayPointer::Kind::scroll:
        zoomBy(pointer.scrolled);
        break;
    }
}

// A button that was pressed before the loupe came up, as that of a menu, picks nothing.
void LoupeSession::released(Qt::MouseButton button)
{
    if (button == Qt::LeftButton && std::exchange(m_isPressed, false))
        pick();
}

// The pointer goes there, and the loupe follows it as always.
void LoupeSession::moveBy(QPoint step)
{
    if (m_pointer)
        m_platform.overlay.surfaces.movePointer(*m_pointer + step);
}

// The hotkey that brought the loupe up may hold the same key.
void LoupeSession::nextNotation(KeyGrabs::Press press)
{
    if (press.modifiers == 0 && !press.isRepeat)
        m_notation = ColorText::next(m_notation);
}

void LoupeSession::zoomBy(int steps)
{
    m_zoom = std::clamp(m_zoom + steps, 0, LoupeScene::zooms - 1);
}

void LoupeSession::pick()
{
    const auto point = pointed();
    if (!point)
        return;
    const auto onPick = m_handlers.onPick; // it may end the session
    onPick(*point);
}

void LoupeSession::cancel(const QString& failure)
{
    if (const auto onCancelled = std::exchange(m_handlers.onCancelled, nullptr))
        onCancelled(failure);
}

// --- What is shown

void LoupeSession::update()
{
    const auto shown = moment();
    m_overlay.show([&](const Display& display) { return shown ? LoupeScene::of(display, *shown) : OverlayScene(); });
}

std::optional<Point> LoupeSession::pointed() const
{
    const DisplayList displays = m_platform.overlay.displays.all();
    const Display* display = m_pointer ? displayAtPixel(displays, *m_pointer) : nullptr;
    return display ? std::optional(ColorLoupeGeometry::middle(*m_pointer, *display)) : std::nullopt;
}

std::optional<LoupeScene::Moment> LoupeSession::moment() const
{
    const auto point = pointed();
    const auto hex = point ? hexAt(*point) : std::nullopt;
    if (!hex)
        return std::nullopt;
    return LoupeScene::Moment{.pointer = *m_pointer,
                              .zoom = m_zoom,
                              .text = ColorText::of(*hex, m_notation),
                              .widest = ColorText::widest(m_notation),
                              .color = QColor(*hex)};
}

} // namespace Kovrel
