#include "capture/selection/SelectionSession.h"

#include "capture/selection/SelectionGeometry.h"
#include "capture/selection/SelectionScene.h"
#include "capture/selection/WindowTiles.h"
#include "model/VirtualKeys.h"
#include "overlay/OverlayKeys.h"
#include "overlay/OverlayPainter.h"
#include "overlay/SelectionCursor.h"
#include "platform/Displays.h"
#include "platform/Pointer.h"
#include "ports/CaptureTrace.h"
#include "preferences/Preferences.h"

#include <QCoreApplication>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr double smallestSelection = 4; // points
constexpr int mostHints = 5;

} // namespace

SelectionSession::SelectionSession(Platform platform, Mode mode, Handlers handlers)
    : m_platform(platform),
      m_handlers(std::move(handlers)),
      m_mode(mode),
      m_area(platform.displays.all()),
      m_overlay({platform.loop, platform.displays, platform.keys, platform.lock, platform.surfaces}, "selection",
                keys(), overlayHandlers())
{
    askForPointer();
}

std::vector<OverlaySession::Key> SelectionSession::keys()
{
    std::vector<OverlaySession::Key> keys{
        {VirtualKeys::space, [this](KeyGrabs::Press press) { spacePressed(press); }, [this] { spaceReleased(); }},
        {VirtualKeys::returnKey, [this](KeyGrabs::Press) { returnPressed(); }},
        {VirtualKeys::enter, [this](KeyGrabs::Press) { returnPressed(); }},
        {VirtualKeys::escape, [this](KeyGrabs::Press) { cancel(); }},
    };
    for (const quint32 key : {VirtualKeys::shift, VirtualKeys::rightShift})
        keys.push_back({key, [this](KeyGrabs::Press) { shiftChanged(true); }, [this] { shiftChanged(false); }});
    std::ranges::move(OverlayKeys::arrows([this](QPoint step, KeyGrabs::Press press) { arrowPressed(step, press); }),
                      std::back_inserter(keys));
    return keys;
}

OverlaySession::Handlers SelectionSession::overlayHandlers()
{
    return {
        .onOpened =
            [this](const OverlaySurfaces::Opened& opened) {
                m_platform.trace.mark(QString("freeze applied (%1 display(s))").arg(opened.screens.size()));
                countHint();
                update();
            },
        .onPointer = [this](const OverlayPointer& pointer) { pointerChanged(pointer); },
        .onInputsHandled = [this] { update(); },
        .onDesktopSwitch =
            [this] { m_platform.trace.mark("desktop switched mid-aim \u2192 re-asserting overlay + crosshair"); },
        .onCancelled = [this](const QString& failure) { finish(SelectionCancelled{failure}); },
    };
}

OverlaySession::CursorOf SelectionSession::cursor() const
{
    return m_mode == Mode::areaDrag ? [](const Display& display) { return SelectionCursor::crosshair(display.scale); }
                                    : [](const Display& display) { return SelectionCursor::camera(display.scale); };
}

void SelectionSession::open()
{
    using Ground = OverlaySurfaces::Ground;
    const bool freezes =
        m_platform.preferences.get(Settings::freezeScreenDuringSelection) || !m_platform.displays.isComposited();
    m_overlay.open({
        .ground = freezes ? Ground::frozen : Ground::live,
        .shade = OverlayPainter::shade(),
        .cursor = cursor(),
    });
    askForWindows();
    // These are many requests: the server gets them while the displays are being frozen.
    m_overlay.takeKeys();
}

void SelectionSession::finish(SelectionResult result)
{
    if (const auto onFinished = std::exchange(m_handlers.onFinished, nullptr))
        onFinished(std::move(result));
}

// --- What the desktop is asked

void SelectionSession::askForPointer()
{
    m_platform.pointer.position(m_lifeline.guard([this](std::optional<PointerPosition> position) {
        if (m_pointer || !position)
            return;
        m_pointer = position->rootPixel;
        updateHoveredWindows();
        update();
    }));
}

void SelectionSession::askForWindows()
{
    m_platform.windows.list(m_lifeline.guard([this](std::optional<std::vector<WindowInfo>> windows) {
        m_areWindowsRefused = !windows;
        m_windows = windows.value_or(std::vector<WindowInfo>());
        updateHoveredWindows();
        update();
        if (m_isPicked)
            pickHovered();
    }));
}

// A hint is shown for the first few times.
void SelectionSession::countHint()
{
    const int shown = m_platform.preferences.get(Settings::selectionHintShownCount);
    m_showsHint = shown < mostHints;
    if (m_showsHint)
        m_platform.preferences.set(Settings::selectionHintShownCount, shown + 1);
}

// --- Keys

void SelectionSession::spacePressed(KeyGrabs::Press press)
{
    const bool wasDown = std::exchange(m_spaceIsDown, true);
    if (m_mode == Mode::areaDrag && m_area.isDragging())
        m_area.beginMoving();
    else if (!wasDown && !press.isRepeat)
        toggleMode();
}

void SelectionSession::spaceReleased()
{
    m_spaceIsDown = false;
    m_area.endMoving();
}

// Also while the pointer rests.
void SelectionSession::shiftChanged(bool isDown)
{
    if (m_pointer)
        m_area.drag(*m_pointer, isDown);
}

void SelectionSession::returnPressed()
{
    const auto rect = m_area.rect();
    if (m_mode == Mode::areaDrag && !m_area.isDragging() && rect && isBigEnough(*rect))
        finish(SelectedArea{*rect});
}

// Without a rectangle Control moves the pointer alone, with one the whole of it.
void SelectionSession::arrowPressed(QPoint step, KeyGrabs::Press press)
{
    if (!m_pointer || m_mode != Mode::areaDrag)
        return;
    const bool isSelected = m_area.rect().has_value();
    if (m_area.isDragging() || (press.modifiers & KeyCombo::control && !isSelected)) {
        m_platform.surfaces.movePointer(*m_pointer + step);
        return;
    }
    if (press.modifiers & KeyCombo::control)
        m_area.moveBy(step);
    else
        m_area.extend(*m_pointer, step);
    m_pointer = m_area.cornerPixel();
    m_platform.surfaces.movePointer(*m_pointer);
}

void SelectionSession::toggleMode()
{
    m_mode = m_mode == Mode::areaDrag ? Mode::windowPick : Mode::areaDrag;
    m_area = AreaSelection(m_platform.displays.all());
    m_pressedInWindowMode = false;
    m_overlay.setCursor(cursor());
    updateHoveredWindows();
    if (m_mode == Mode::windowPick)
        askForWindows();                               // on live ground they may have moved
    const auto onModeChange = m_handlers.onModeChange; // it may end the session
    onModeChange(m_mode);
}

// --- Pointer

void SelectionSession::pointerChanged(const OverlayPointer& pointer)
{
    if (m_isPicked) // where it was clicked
        return;
    m_pointer = pointer.rootPixel;
    m_area.drag(pointer.rootPixel, pointer.isShiftDown);
    updateHoveredWindows();
    if (pointer.kind == OverlayPointer::Kind::press)
        pressed(pointer);
    else if (pointer.kind == OverlayPointer::Kind::release)
        released(pointer);
}

void SelectionSession::pressed(const OverlayPointer& pointer)
{
    if (pointer.button == Qt::RightButton) {
        cancel();
    } else if (m_mode == Mode::windowPick) {
        m_pressedInWindowMode = true;
    } else {
        m_showsHint = false;
        m_area.press(pointer.rootPixel);
    }
}

void SelectionSession::released(const OverlayPointer& pointer)
{
    if (pointer.button != Qt::LeftButton)
        return;
    if (m_mode == Mode::windowPick) {
        m_isPicked = std::exchange(m_pressedInWindowMode, false);
        if (m_isPicked && m_windows)
            pickHovered();
    } else if (m_area.isDragging()) {
        m_area.release();
        const QRect rect = *m_area.rect();
        finish(isBigEnough(rect) ? SelectionResult(SelectedArea{rect}) : SelectionCancelled{});
    }
}

void SelectionSession::pickHovered()
{
    if (!m_hovered.empty())
        finish(SelectedWindows{m_hovered});
    else
        finish(SelectionCancelled{m_areWindowsRefused ? "the desktop does not tell which windows there are" : ""});
}

void SelectionSession::updateHoveredWindows()
{
    m_hovered.clear();
    if (m_mode != Mode::windowPick || !m_pointer || !m_windows)
        return;
    const qint64 ownPid = QCoreApplication::applicationPid();
    for (const size_t index : WindowTiles::groupAt(*m_windows, *m_pointer, scaleAtPointer(), ownPid))
        m_hovered.push_back((*m_windows)[index]);
    if (!m_hovered.empty())
        return;
    if (const auto index = SelectionGeometry::hoveredWindowIndex(*m_windows, *m_pointer, ownPid))
        m_hovered.push_back((*m_windows)[*index]);
}

void SelectionSession::update()
{
    if (!m_overlay.isOpen())
        return;
    SelectionScene::Moment moment{
        .isWindowMode = m_mode == Mode::windowPick,
        .area = m_area.rect(),
        .isDragging = m_area.isDragging(),
        .windows = {},
        .windowsInSight = {},
        .pointer = m_pointer,
        .showsHint = m_showsHint,
    };
    const qint64 ownPid = QCoreApplication::applicationPid();
    for (const WindowInfo& window : m_hovered) {
        moment.windows.push_back(window.pixelRect);
        moment.windowsInSight += SelectionGeometry::partInSight(*m_windows, window, ownPid);
    }
    m_overlay.show([&](const Display& display) { return SelectionScene::of(display, moment); });
}

// --- Geometry

double SelectionSession::scaleAtPointer() const
{
    const DisplayList displays = m_platform.displays.all();
    const Display* display = m_pointer ? displayAtPixel(displays, *m_pointer) : nullptr;
    return display ? display->scale : 1;
}

bool SelectionSession::isBigEnough(const QRect& rect) const
{
    const double smallest = smallestSelection * scaleAtPointer();
    return rect.width() >= smallest && rect.height() >= smallest;
}

} // namespace Kovrel
