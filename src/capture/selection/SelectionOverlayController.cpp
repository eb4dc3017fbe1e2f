#include "capture/selection/SelectionOverlayController.h"

#include "capture/selection/SelectionGeometry.h"
#include "capture/selection/SelectionScene.h"
#include "capture/selection/WindowTiles.h"
#include "model/VirtualKeys.h"
#include "overlay/OverlayPainter.h"
#include "overlay/SelectionCursor.h"
#include "platform/Displays.h"
#include "platform/Pointer.h"
#include "platform/ScreenLock.h"
#include "ports/CaptureTrace.h"
#include "preferences/Preferences.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <algorithm>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.capture")

constexpr double smallestSelection = 4; // points
constexpr int mostHints = 5;
constexpr int shiftedStep = 10;

constexpr std::pair<quint32, QPoint> arrowKeys[] = {{VirtualKeys::left, {-1, 0}},
                                                    {VirtualKeys::right, {1, 0}},
                                                    {VirtualKeys::down, {0, 1}},
                                                    {VirtualKeys::up, {0, -1}}};

OverlayCursor cursorOf(SelectionOverlay::Mode mode, const Display& display)
{
    return mode == SelectionOverlay::Mode::areaDrag ? SelectionCursor::crosshair(display.scale)
                                                    : SelectionCursor::camera(display.scale);
}

} // namespace

SelectionOverlayController::SelectionOverlayController(Platform platform) : m_platform(platform)
{
    m_displayChanges = m_platform.displays.onChange([this] { cancel(); });
    m_locks = m_platform.lock.onLock([this] { cancel(); });
}

SelectionOverlayController::~SelectionOverlayController()
{
    m_completion = nullptr;
    dismiss(false);
}

void SelectionOverlayController::prewarm()
{
    m_platform.surfaces.prewarm();
}

void SelectionOverlayController::expectSession()
{
    if (!m_completion)
        m_platform.surfaces.expectOpening();
}

// --- The session

void SelectionOverlayController::begin(Mode mode, std::function<void(SelectionResult)> completion)
{
    m_completion = std::move(completion);
    m_mode = mode;
    m_kept.clear();
    m_area = AreaSelection(m_platform.displays.all());
    m_pointer.reset();
    askForPointer();
}

void SelectionOverlayController::applyFrozenImages()
{
    if (!m_completion) // cancelled meanwhile
        return;
    using Ground = OverlaySurfaces::Ground;
    const bool freezes =
        m_platform.preferences.get(Settings::freezeScreenDuringSelection) || !m_platform.displays.isComposited();
    OverlaySurfaces::Opening opening{
        .ground = freezes ? Ground::frozen : Ground::live,
        .shade = OverlayPainter::shade(),
        .cursor = [mode = m_mode](const Display& display) { return cursorOf(mode, display); },
    };
    OverlaySurfaces::Handlers handlers{
        .onPointer =
            [this](const OverlayPointer& pointer) { take(pointer.time, [this, pointer] { pointerChanged(pointer); }); },
        .onDesktopSwitch =
            [this] {
                m_platform.trace.mark("desktop switched mid-aim \u2192 re-asserting overlay + crosshair");
                reassertPresence();
            },
        .onExposed =
            [this](const QRect& rootPixels) {
                for (OverlayView& view : m_views)
                    view.repaint(rootPixels);
            },
        .onLost = [this] { cancel(); },
    };
    m_platform.surfaces.open(std::move(opening), std::move(handlers),
                             [this, session = m_session](std::optional<OverlaySurfaces::Opened> result) {
                                 if (session == m_session)
                                     opened(std::move(result));
                             });
    askForWindows();
    // These are many requests: the server gets them while the displays are being frozen.
    registerKeys();
    m_takeovers = m_platform.keys.watchForTakeover([this] { cancel(); });
}

void SelectionOverlayController::opened(std::optional<OverlaySurfaces::Opened> opened)
{
    if (!opened) {
        qCWarning(log, "The displays can't be covered for a selection");
        cancel();
        return;
    }
    m_platform.trace.mark(QString("freeze applied (%1 display(s))").arg(opened->screens.size()));
    const DisplayList displays = m_platform.displays.all();
    for (const FrozenScreen& screen : opened->screens)
        if (const Display* display = displayWithID(displays, screen.displayID))
            m_views.emplace_back(m_platform.surfaces, *display, screen.image, opened->ground);
    if (opened->ground == OverlaySurfaces::Ground::frozen)
        m_frozen = std::move(opened->screens);
    showHint();
    update();
    if (opened->isPointerHeld)
        takePointer();
}

// What makes others let go of the pointer is an Escape, which must not end our own session.
void SelectionOverlayController::takePointer()
{
    releaseKeys();
    m_platform.surfaces.takePointer([this, session = m_session](bool isTaken) {
        if (session != m_session)
            return;
        registerKeys();
        if (isTaken)
            return;
        qCWarning(log, "Another program holds the pointer: nothing can be selected");
        cancel();
    });
}

void SelectionOverlayController::askForPointer()
{
    m_platform.pointer.position([this, session = m_session](std::optional<PointerPosition> position) {
        if (session != m_session || m_pointer || !position)
            return;
        m_pointer = position->rootPixel;
        updateHoveredWindows();
        update();
    });
}

void SelectionOverlayController::askForWindows()
{
    m_platform.windows.list([this, session = m_session](std::optional<std::vector<WindowInfo>> windows) {
        if (session != m_session)
            return;
        m_windows = windows.value_or(std::vector<WindowInfo>());
        updateHoveredWindows();
        update();
        if (m_isPicked)
            pickHovered();
    });
}

void SelectionOverlayController::showHint()
{
    const int shown = m_platform.preferences.get(Settings::selectionHintShownCount);
    m_showsHint = shown < mostHints;
    if (m_showsHint)
        m_platform.preferences.set(Settings::selectionHintShownCount, shown + 1);
}

void SelectionOverlayController::reassertPresence()
{
    m_platform.surfaces.raise();
    m_platform.surfaces.setCursor([mode = m_mode](const Display& display) { return cursorOf(mode, display); });
}

void SelectionOverlayController::cancel()
{
    finish(SelectionCancelled{});
}

void SelectionOverlayController::finish(SelectionResult result)
{
    const auto completion = std::exchange(m_completion, nullptr);
    if (!completion)
        return;
    m_isCommitting = true;
    dismiss(!std::holds_alternative<SelectionCancelled>(result));
    completion(std::move(result));
    m_isCommitting = false;
}

void SelectionOverlayController::dismiss(bool keepingFrozenScreens)
{
    ++m_session;
    m_inputs.clear();
    releaseKeys();
    m_takeovers = {};
    m_platform.surfaces.close();
    m_views.clear();
    if (keepingFrozenScreens)
        m_kept = std::move(m_frozen);
    m_frozen.clear();
    m_windows.reset();
    m_hovered.clear();
    m_pressedInWindowMode = false;
    m_isPicked = false;
    m_spaceIsDown = false;
}

// --- Keys

// Keys and pointer arrive one after the other, each in its own order. Under load, or when a program types, several of
// both wait at once: then they are handled in the order in which they were done.
void SelectionOverlayController::take(KeyGrabs::Time time, std::function<void()> input)
{
    const auto isEarlier = [](KeyGrabs::Time one, KeyGrabs::Time other) { return qint32(one - other) < 0; };
    m_inputs.insert(std::ranges::upper_bound(m_inputs, time, isEarlier, &Input::time), {time, std::move(input)});
    if (m_inputs.size() > 1)
        return;
    m_platform.loop.post([this, session = m_session] {
        if (session == m_session)
            handleInputs();
    });
}

void SelectionOverlayController::handleInputs()
{
    const auto inputs = std::exchange(m_inputs, {});
    const auto session = m_session;
    for (const Input& input : inputs)
        if (session == m_session)
            input.handle();
    update();
}

void SelectionOverlayController::registerKeys()
{
    const auto add = [this](
                         quint32 keyCode, std::function<void(KeyGrabs::Press)> onPress,
                         std::function<void()> onRelease = [] {}) {
        KeyGrabs::Handlers handlers{
            .onPress = [this, onPress](KeyGrabs::Press press) { take(press.time, [=] { onPress(press); }); },
            .onRelease = [this, onRelease](KeyGrabs::Time time) { take(time, onRelease); },
        };
        const KeyCombo combo{keyCode, 0};
        const auto grab = m_platform.keys.grab(combo, std::move(handlers), KeyGrabs::Modifiers::any);
        if (grab)
            m_keys.push_back(*grab);
        else
            qCWarning(log, "Kovrel: selection failed to register key %s (status %d)", qUtf8Printable(combo.text()),
                      grab.error());
    };
    const auto spaceReleased = [this] {
        m_spaceIsDown = false;
        m_area.endMoving();
    };
    add(VirtualKeys::space, [this](KeyGrabs::Press press) { spacePressed(press); }, spaceReleased);
    add(VirtualKeys::returnKey, [this](KeyGrabs::Press) { returnPressed(); });
    add(VirtualKeys::enter, [this](KeyGrabs::Press) { returnPressed(); });
    add(VirtualKeys::escape, [this](KeyGrabs::Press) { cancel(); });
    for (const auto& [key, direction] : arrowKeys)
        add(key, [this, direction](KeyGrabs::Press press) { arrowPressed(direction, press); });
}

void SelectionOverlayController::releaseKeys()
{
    for (const KeyGrabs::GrabID key : std::exchange(m_keys, {}))
        m_platform.keys.release(key);
}

void SelectionOverlayController::spacePressed(KeyGrabs::Press press)
{
    if (m_mode == Mode::areaDrag && m_area.isDragging())
        m_area.beginMoving();
    else if (!m_spaceIsDown && !press.isRepeat)
        toggleMode();
    m_spaceIsDown = true;
}

void SelectionOverlayController::returnPressed()
{
    const auto rect = m_area.rect();
    if (m_mode == Mode::areaDrag && !m_area.isDragging() && !m_isCommitting && rect && isBigEnough(*rect))
        finish(SelectedArea{*rect});
}

// Without a rectangle Control moves the pointer alone, with one the whole of it.
void SelectionOverlayController::arrowPressed(QPoint direction, KeyGrabs::Press press)
{
    if (!m_pointer || m_mode != Mode::areaDrag)
        return;
    const QPoint step = direction * (press.modifiers & KeyCombo::shift ? shiftedStep : 1);
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

void SelectionOverlayController::toggleMode()
{
    m_mode = m_mode == Mode::areaDrag ? Mode::windowPick : Mode::areaDrag;
    m_area = AreaSelection(m_platform.displays.all());
    m_pressedInWindowMode = false;
    m_modeObservers.notify(m_mode);
    reassertPresence();
    updateHoveredWindows();
    if (m_mode == Mode::windowPick)
        askForWindows(); // on live ground they may have moved
}

// --- Pointer

void SelectionOverlayController::pointerChanged(const OverlayPointer& pointer)
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

void SelectionOverlayController::pressed(const OverlayPointer& pointer)
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

void SelectionOverlayController::released(const OverlayPointer& pointer)
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

void SelectionOverlayController::pickHovered()
{
    finish(m_hovered.empty() ? SelectionResult(SelectionCancelled{}) : SelectedWindows{m_hovered});
}

void SelectionOverlayController::updateHoveredWindows()
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

void SelectionOverlayController::update()
{
    if (m_views.empty())
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
    for (OverlayView& view : m_views)
        view.show(SelectionScene::of(view.display(), moment));
}

// --- Geometry

double SelectionOverlayController::scaleAtPointer() const
{
    const DisplayList displays = m_platform.displays.all();
    const Display* display = m_pointer ? displayAtPixel(displays, *m_pointer) : nullptr;
    return display ? display->scale : 1;
}

bool SelectionOverlayController::isBigEnough(const QRect& rect) const
{
    const double smallest = smallestSelection * scaleAtPointer();
    return rect.width() >= smallest && rect.height() >= smallest;
}

} // namespace Kovrel
