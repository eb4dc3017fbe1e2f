#include "overlay/OverlaySession.h"

#include "platform/Displays.h"
#include "platform/MainLoop.h"
#include "platform/ScreenLock.h"

#include <QLoggingCategory>

#include <algorithm>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.capture")

// The handler is a copy: it may end the session, and the session's own would go with it.
template <class... Args>
void tell(std::function<void(Args...)> handler, const std::type_identity_t<Args>&... args)
{
    handler(args...);
}

} // namespace

OverlaySession::OverlaySession(Services services, QString name, std::vector<Key> keys, Handlers handlers)
    : m_services(services),
      m_name(std::move(name)),
      m_keys(std::move(keys)),
      m_handlers(std::move(handlers)),
      m_displayChanges(services.displays.onChange([this] { cancel(); })),
      m_locks(services.lock.onLock([this] { cancel(); }))
{
}

OverlaySession::~OverlaySession()
{
    releaseKeys();
    m_services.surfaces.close();
}

void OverlaySession::cancel(const QString& failure)
{
    if (const auto onCancelled = std::exchange(m_handlers.onCancelled, nullptr))
        onCancelled(failure);
}

// --- Surfaces

void OverlaySession::open(OverlaySurfaces::Opening opening)
{
    m_cursor = opening.cursor;
    m_shade = opening.shade;
    m_services.surfaces.open(std::move(opening), surfaceHandlers(),
                             m_lifeline.guard([this](OverlaySurfaces::Outcome result) { opened(std::move(result)); }));
}

OverlaySurfaces::Handlers OverlaySession::surfaceHandlers()
{
    return {
        .onPointer =
            [this](const OverlayPointer& pointer) {
                take(pointer.time, [onPointer = m_handlers.onPointer, pointer] { onPointer(pointer); });
            },
        .onDesktopSwitch =
            [this] {
                reassertPresence();
                tell(m_handlers.onDesktopSwitch);
            },
        .onExposed =
            [this](const QRect& rootPixels) {
                for (OverlayView& view : m_views)
                    view.repaint(rootPixels);
            },
        .onLost = [this] { cancel(); },
    };
}

void OverlaySession::opened(OverlaySurfaces::Outcome opened)
{
    if (!opened) {
        qCWarning(log, "The displays can't be covered for a %s: %s", qUtf8Printable(m_name),
                  qUtf8Printable(opened.error()));
        cancel(opened.error());
        return;
    }
    addViews(*opened);
    const auto session = m_lifeline.watch();
    tell(m_handlers.onOpened, *opened);
    if (session.expired())
        return;
    if (opened->ground == OverlaySurfaces::Ground::frozen)
        m_frozen = std::move(opened->screens);
    if (opened->isPointerHeld)
        takePointer();
}

void OverlaySession::addViews(const OverlaySurfaces::Opened& opened)
{
    const DisplayList displays = m_services.displays.all();
    for (const FrozenScreen& screen : opened.screens)
        if (const Display* display = displayWithID(displays, screen.displayID))
            m_views.emplace_back(m_services.surfaces, *display,
                                 OverlayView::Backing{screen.image, opened.ground, m_shade});
}

// What makes others let go of the pointer is an Escape, which must not end our own session.
void OverlaySession::takePointer()
{
    releaseKeys();
    m_services.surfaces.takePointer(m_lifeline.guard([this](bool isTaken) {
        grabKeys();
        if (isTaken)
            return;
        qCWarning(log, "Another program holds the pointer: no %s is possible", qUtf8Printable(m_name));
        cancel("another program holds the pointer");
    }));
}

void OverlaySession::show(const SceneOf& sceneOf)
{
    for (OverlayView& view : m_views)
        view.show(sceneOf(view.display()));
}

void OverlaySession::setCursor(CursorOf cursor)
{
    m_cursor = std::move(cursor);
    reassertPresence();
}

void OverlaySession::reassertPresence()
{
    if (!m_cursor)
        return;
    m_services.surfaces.raise();
    m_services.surfaces.setCursor(m_cursor);
}

// --- Keys

void OverlaySession::takeKeys()
{
    grabKeys();
    m_takeovers = m_services.keys.watchForTakeover([this] { cancel(); });
}

void OverlaySession::grabKeys()
{
    for (const Key& key : m_keys)
        grab(key);
}

void OverlaySession::grab(const Key& key)
{
    KeyGrabs::Handlers handlers{
        .onPress = [this, onPress = key.onPress](
                       KeyGrabs::Press press) { take(press.time, [onPress, press] { onPress(press); }); },
        .onRelease = [this, onRelease = key.onRelease](KeyGrabs::Time time) { take(time, onRelease); },
    };
    const KeyCombo combo{key.keyCode};
    const auto grab = m_services.keys.grab(combo, std::move(handlers), KeyGrabs::Modifiers::any);
    if (grab)
        m_grabs.push_back(*grab);
    else
        qCWarning(log, "Kovrel: %s failed to register %s (status %d)", qUtf8Printable(m_name),
                  qUtf8Printable(key.logName.isEmpty() ? "key " + combo.text() : key.logName), grab.error());
}

void OverlaySession::releaseKeys()
{
    for (const KeyGrabs::GrabID grab : std::exchange(m_grabs, {}))
        m_services.keys.release(grab);
}

// --- Inputs

// Keys and pointer arrive one after the other, each in its own order. Under load, or when a program types, several of
// both wait at once: then they are handled in the order in which they were done.
void OverlaySession::take(KeyGrabs::Time time, std::function<void()> input)
{
    const auto isEarlier = [](KeyGrabs::Time one, KeyGrabs::Time other) { return qint32(one - other) < 0; };
    m_inputs.insert(std::ranges::upper_bound(m_inputs, time, isEarlier, &Input::time), {time, std::move(input)});
    if (m_inputs.size() == 1)
        m_services.loop.post(m_lifeline.guard([this] { handleInputs(); }));
}

void OverlaySession::handleInputs()
{
    const auto inputs = std::exchange(m_inputs, {});
    const auto session = m_lifeline.watch();
    for (const Input& input : inputs) {
        input.handle();
        if (session.expired())
            return;
    }
    tell(m_handlers.onInputsHandled);
}

} // namespace Kovrel
