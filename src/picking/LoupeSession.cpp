#include "picking/LoupeSession.h"

#include "model/VirtualKeys.h"
#include "picking/ColorLoupeGeometry.h"
#include "picking/ColorLoupeSampler.h"
#include "picking/ColorText.h"

#include <algorithm>

namespace Kovrel {

LoupeSession::LoupeSession(const AimSession::Platform& platform, Handlers handlers)
    : m_handlers(std::move(handlers)), m_aim(platform, "loupe", keys(), aimHandlers())
{
}

std::vector<OverlaySession::Key> LoupeSession::keys()
{
    std::vector<OverlaySession::Key> keys;
    for (const quint32 key : {VirtualKeys::c, VirtualKeys::tab})
        keys.push_back({key, [this](KeyGrabs::Press press) { nextNotation(press); }});
    return keys;
}

AimSession::Handlers LoupeSession::aimHandlers()
{
    return {
        .onFrozen = [this](const Display& display, const QImage& image) { m_stills[display.id] = {display, image}; },
        .onPointer = [this](const OverlayPointer& pointer) { pointerChanged(pointer); },
        .onTake = [this] { pick(); },
        .onChanged = [this] { update(); },
        .onCancelled = m_handlers.onCancelled,
    };
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
        m_isPressed = true;
        break;
    case OverlayPointer::Kind::release:
        released(pointer.button);
        break;
    case OverlayPointer::Kind::scroll:
        m_zoom = std::clamp(m_zoom + pointer.scrolled, 0, LoupeScene::zooms - 1);
        break;
    }
}

// A button that was pressed before the loupe came up, as that of a menu, picks nothing.
void LoupeSession::released(Qt::MouseButton button)
{
    if (button == Qt::LeftButton && std::exchange(m_isPressed, false))
        pick();
}

// The hotkey that brought the loupe up may hold the same key.
void LoupeSession::nextNotation(KeyGrabs::Press press)
{
    if (press.modifiers == 0 && !press.isRepeat)
        m_notation = ColorText::next(m_notation);
}

void LoupeSession::pick()
{
    const LoupeStill* still = pointed();
    if (!still)
        return;
    const auto onPick = m_handlers.onPick; // it may end the session
    onPick(ColorLoupeGeometry::middle(*m_pointer, still->display));
}

// --- What is shown

void LoupeSession::update()
{
    const auto shown = moment();
    m_aim.show([&](const Display& display) { return shown ? LoupeScene::of(display, *shown) : OverlayScene(); });
}

const LoupeStill* LoupeSession::pointed() const
{
    const auto holds = [this](const auto& still) { return still.second.display.pixelRect.contains(*m_pointer); };
    const auto found = m_pointer ? std::ranges::find_if(m_stills, holds) : m_stills.end();
    return found == m_stills.end() ? nullptr : &found->second;
}

std::optional<LoupeScene::Moment> LoupeSession::moment() const
{
    const LoupeStill* still = pointed();
    const auto hex = still ? hexAt(ColorLoupeGeometry::middle(*m_pointer, still->display)) : std::nullopt;
    if (!hex)
        return std::nullopt;
    return LoupeScene::Moment{.pointer = *m_pointer,
                              .zoom = m_zoom,
                              .text = ColorText::of(*hex, m_notation),
                              .widest = ColorText::widest(m_notation),
                              .color = QColor(*hex)};
}

} // namespace Kovrel
