#include "platform/x11/keys/X11KeyGrabs.h"

#include "platform/x11/keys/X11Xkb.h"

#include <QLoggingCategory>

#include <algorithm>
#include <array>

#include <xcb/xinput.h>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.desktop")

constexpr KeyGrabs::GrabID noGrab = 0;

constexpr auto keyboard = XCB_XKB_ID_USE_CORE_KBD;

constexpr std::array everyModifier{KeyCombo::command, KeyCombo::shift, KeyCombo::option, KeyCombo::control};

// Every combination of the four modifiers.
std::vector<quint32> allModifierStates()
{
    std::vector<quint32> states{0};
    for (const quint32 modifier : everyModifier)
        for (size_t index = 0, count = states.size(); index < count; ++index)
            states.push_back(states[index] | modifier);
    return states;
}

// Raw events come to those only who asked for version 2.1 or later, also while a program holds the keyboard.
uint8_t agreeOnRawKeys(const X11Connection& connection)
{
    if (!connection.has(xcb_input_id))
        return 0;
    connection.reply(xcb_input_xi_query_version_reply, xcb_input_xi_query_version(connection.handle(), 2, 2));
    return xcb_get_extension_data(connection.handle(), &xcb_input_id)->major_opcode;
}

} // namespace

X11KeyGrabs::X11KeyGrabs(MainLoop& loop, std::unique_ptr<X11Connection> connection)
    : m_connection(std::move(connection)),
      m_keyboard(*m_connection),
      m_listening(*m_connection, m_keyboard),
      m_takeovers(loop, *m_connection,
                  {.ownKeys = [this] { return ownKeys(); }, .eventsMayWait = [this] { handleLater(); }})
{
    if (!m_connection->isAlive())
        return;
    m_rawKeyOpcode = agreeOnRawKeys(*m_connection);
    if (m_rawKeyOpcode == 0 || m_keyboard.firstEvent() == 0) {
        qCWarning(log, "This X server lacks the extensions for keys; there are no hotkeys");
        return;
    }
    listenToLayout();
    listen(false);
    m_keyboard.read();
    m_groupIsOld = false;
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection->handle()), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { handleEvents(); });
    handleLater();
}

// --- Asking the server

void X11KeyGrabs::listenToLayout()
{
    constexpr uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    xcb_xkb_select_events(m_connection->handle(), keyboard, events, 0, events, 0, 0, nullptr);
    // A held key is then pressed again and again without being released in between.
    constexpr uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    xcb_xkb_per_client_flags_unchecked(m_connection->handle(), keyboard, flag, flag, 0, 0, 0);
}

// To the keys and the modifiers; to changes of the group always.
void X11KeyGrabs::listen(bool isOn)
{
    struct {
        xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL_MASTER, 1};
        uint32_t mask = 0;
    } rawKeys;

    if (isOn)
        rawKeys.mask = XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
    xcb_input_xi_select_events(m_connection->handle(), m_connection->root(), 1, &rawKeys.head);

    xcb_xkb_select_events_details_t details = {};
    details.affectState = XCB_XKB_STATE_PART_GROUP_LOCK | XCB_XKB_STATE_PART_GRAB_MODS;
    details.stateDetails = isOn ? details.affectState : uint16_t(XCB_XKB_STATE_PART_GROUP_LOCK);
    xcb_xkb_select_events_aux(m_connection->handle(), keyboard, XCB_XKB_EVENT_TYPE_STATE_NOTIFY, 0, 0, 0, 0, &details);

    const auto state =
        m_connection->reply(xcb_xkb_get_state_reply, xcb_xkb_get_state(m_connection->handle(), keyboard));
    if (!state)
        return;
    m_modifiers = state->grabMods;
    m_groupIsOld |= m_keyboard.setGroup(state->lockedGroup);
}

std::vector<X11KeyGrabs::Chord> X11KeyGrabs::chordsOf(const Grab& grab) const
{
    const auto states =
        grab.modifiers == Modifiers::any ? allModifierStates() : std::vector<quint32>{grab.combo.modifiers};
    std::vector<Chord> chords;
    for (const xcb_keycode_t key : m_keyboard.keysFor(grab.combo.keyCode))
        for (const quint32 state : states)
            for (const uint8_t locks : m_keyboard.lockStates())
                chords.push_back({key, uint8_t(m_keyboard.mask(state) | locks)});
    return chords;
}

// The server's refusals. All requests are on their way before the first answer is waited for.
std::map<X11KeyGrabs::Chord, KeyGrabs::Status> X11KeyGrabs::request(const std::vector<Chord>& chords)
{
    std::vector<xcb_void_cookie_t> requests;
    requests.reserve(chords.size());
    for (const auto& [key, modifiers] : chords)
        requests.push_back(xcb_grab_key_checked(m_connection->handle(), 0, m_connection->root(), modifiers, key,
                                                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    std::map<Chord, Status> refusals;
    for (size_t index = 0; index < chords.size(); ++index)
        if (const uint8_t error = m_connection->errorOf(requests[index]))
            refusals.emplace(chords[index], error);
    return refusals;
}

// 0, or why nothing of it can be had. A key that is to have exactly these modifiers is had with every state of the lock
// keys or not at all.
KeyGrabs::Status X11KeyGrabs::take(GrabID id, Grab& grab)
{
    grab.wanted = chordsOf(grab);
    if (grab.wanted.empty())
        return XCB_VALUE;
    const auto refusals = request(grab.wanted);
    const auto isRefused = [&](const Chord& chord) {
        return grab.modifiers == Modifiers::any
                   ? refusals.contains(chord)
                   : std::ranges::any_of(refusals, [&](const auto& refusal) { return refusal.first.key == chord.key; });
    };
    for (const Chord& chord : grab.wanted) {
        if (isRefused(chord)) {
            ungrabUnowned(chord);
        } else {
            grab.had.push_back(chord);
            m_owners[chord].push_back(id);
        }
    }
    xcb_flush(m_connection->handle());
    return grab.had.empty() ? refusals.begin()->second : 0;
}

void X11KeyGrabs::drop(GrabID id, Grab& grab)
{
    for (const Chord& chord : std::exchange(grab.had, {})) {
        std::erase(m_owners[chord], id);
        if (m_owners[chord].empty())
            m_owners.erase(chord);
        ungrabUnowned(chord);
    }
    xcb_flush(m_connection->handle());
}

void X11KeyGrabs::ungrabUnowned(const Chord& chord)
{
    if (!m_owners.contains(chord))
        xcb_ungrab_key(m_connection->handle(), chord.key, m_connection->root(), chord.modifiers);
}

// --- Grabs

std::expected<KeyGrabs::GrabID, KeyGrabs::Status> X11KeyGrabs::grab(KeyCombo combo, Handlers handlers,
                                                                    Modifiers modifiers)
{
    if (!m_notifier || !m_connection->isAlive())
        return std::unexpected(XCB_CONN_ERROR);
    if (m_grabs.empty()) {
        m_held.clear(); // nothing has told of their release
        listen(true);
    }
    const GrabID id = ++m_lastGrab;
    Grab& grab = m_grabs.emplace(id, Grab{combo, modifiers, std::move(handlers)}).first->second;
    const Status status = take(id, grab);
    handleLater();
    if (status == 0)
        return id;
    release(id);
    return std::unexpected(status);
}

void X11KeyGrabs::release(GrabID grab)
{
    auto released = m_grabs.extract(grab);
    if (released.empty() || !m_connection->isAlive())
        return;
    drop(grab, released.mapped());
    handleLater();
    if (!m_grabs.empty())
        return;
    listen(false);
    m_held.clear(); // nothing tells of their release any more
}

std::expected<Subscription, KeyGrabs::Status> X11KeyGrabs::listen(std::function<void(Typed)> typed)
{
    if (!m_notifier || !m_connection->isAlive())
        return std::unexpected(XCB_CONN_ERROR);
    m_held.clear(); // the listener hears of their release
    auto listening = m_listening.listen(std::move(typed));
    handleLater();
    return listening;
}

// Grabs whose keys are the same on the new layout stay as they are.
void X11KeyGrabs::followLayout()
{
    handleLater();
    const bool isRead = std::exchange(m_layoutIsOld, false) && m_keyboard.read();
    if (!std::exchange(m_groupIsOld, false) && !isRead)
        return;
    std::vector<GrabID> moved;
    for (auto& [id, grab] : m_grabs) {
        if (chordsOf(grab) == grab.wanted)
            continue;
        drop(id, grab);
        moved.push_back(id);
    }
    for (const GrabID id : moved)
        if (const Status status = take(id, m_grabs.at(id)))
            qCWarning(log, "%s can't be had on the new keyboard layout (status %d)",
                      qUtf8Printable(m_grabs.at(id).combo.text()), status);
    m_layoutObservers.notify();
}

X11TakeoverWatch::OwnKeys X11KeyGrabs::ownKeys() const
{
    using enum X11TakeoverWatch::OwnKeys;
    if (m_held.empty())
        return up;
    return std::ranges::any_of(m_held, [](const auto& held) { return held.second.isReported; }) ? holdKeyboard : down;
}

// --- Events

void X11KeyGrabs::handleEvents()
{
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection->handle())})
        handle(*event);
    if (!m_connection->isAlive())
        m_notifier->setEnabled(false);
    else if (m_layoutIsOld || m_groupIsOld)
        followLayout();
}

// Sending requests and waiting for answers may take events off the socket, whose notifier then knows nothing of them.
void X11KeyGrabs::handleLater()
{
    if (m_notifier)
        QMetaObject::invokeMethod(m_notifier.get(), [this] { handleEvents(); }, Qt::QueuedConnection);
}

void X11KeyGrabs::handle(const xcb_generic_event_t& event)
{
    const int type = event.response_type & 0x7f;
    if (type == XCB_GE_GENERIC)
        handleRawKey(event);
    else if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE)
        handleGrabbedKey(event);
    else if (type == XCB_MAPPING_NOTIFY)
        m_layoutIsOld |= reinterpret_cast<const xcb_mapping_notify_event_t&>(event).request != XCB_MAPPING_POINTER;
    else if (type == m_keyboard.firstEvent())
        handleKeyboardChange(event);
    else
        m_takeovers.handle(event);
}

void X11KeyGrabs::handleGrabbedKey(const xcb_generic_event_t& event)
{
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event); // a release has the same layout
    m_time = key.time;
    if (m_listening.isOn())
        return handleListenedKey(key);
    if ((event.response_type & 0x7f) == XCB_KEY_PRESS)
        reported(key.detail);
    else
        released(key.detail);
}

// A key that is still down when the listener has gone is no new press of a hotkey.
void X11KeyGrabs::handleListenedKey(const xcb_key_press_event_t& key)
{
    if ((key.response_type & 0x7f) == XCB_KEY_PRESS)
        m_held.try_emplace(key.detail, HeldKey{noGrab});
    else
        m_held.erase(key.detail);
    m_listening.handle(key);
}

void X11KeyGrabs::handleRawKey(const xcb_generic_event_t& event)
{
    const auto& raw = reinterpret_cast<const xcb_input_raw_key_press_event_t&>(event);
    if (raw.extension != m_rawKeyOpcode || m_listening.isOn())
        return;
    m_time = raw.time;
    if (raw.event_type == XCB_INPUT_RAW_KEY_PRESS)
        pressed(xcb_keycode_t(raw.detail));
    else if (raw.event_type == XCB_INPUT_RAW_KEY_RELEASE)
        released(xcb_keycode_t(raw.detail));
}

// The modifiers' changes stand between the raw events in the order in which they happened.
void X11KeyGrabs::handleKeyboardChange(const xcb_generic_event_t& event)
{
    const auto& change = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event);
    if (change.xkbType != XCB_XKB_STATE_NOTIFY) {
        m_layoutIsOld = true;
        return;
    }
    if (std::exchange(m_modifiers, change.grabMods) != change.grabMods)
        modifiersChanged();
    m_groupIsOld |= m_keyboard.setGroup(change.lockedGroup);
}

void X11KeyGrabs::modifiersChanged()
{
    const quint32 held = m_keyboard.modifiers(m_modifiers);
    const bool isMoreThanSuper = held & KeyCombo::command && held != KeyCombo::command;
    if (!isMoreThanSuper || !m_held.empty())
        return;
    for (const auto& [id, grab] : m_grabs) {
        if (grab.modifiers == Modifiers::exact && grab.combo.modifiers == held) {
            m_modifierObservers.notify();
            return;
        }
    }
}

// The handlers are copied before the call, for they may release their grab.

void X11KeyGrabs::pressed(xcb_keycode_t key)
{
    const auto owners = m_owners.find({key, m_modifiers});
    if (owners == m_owners.end() || m_held.contains(key))
        return;
    const GrabID newest = owners->second.back();
    m_held.emplace(key, HeldKey{newest});
    const auto onPress = m_grabs.at(newest).handlers.onPress;
    onPress({.modifiers = m_keyboard.modifiers(m_modifiers), .time = m_time});
}

void X11KeyGrabs::released(xcb_keycode_t key)
{
    const auto held = m_held.extract(key);
    const auto grab = held.empty() ? m_grabs.end() : m_grabs.find(held.mapped().grab);
    if (grab == m_grabs.end() || !grab->second.handlers.onRelease)
        return;
    const auto onRelease = grab->second.handlers.onRelease;
    onRelease(m_time);
}

// A press that a passive grab of ours tells: known already when a raw event came before, as it does for the first key.
void X11KeyGrabs::reported(xcb_keycode_t key)
{
    if (!m_held.contains(key))
        pressed(key);
    else if (m_held.at(key).isReported)
        repeated(m_held.at(key).grab);
    if (const auto held = m_held.find(key); held != m_held.end())
        held->second.isReported = true;
}

void X11KeyGrabs::repeated(GrabID id)
{
    const auto grab = m_grabs.find(id);
    if (grab == m_grabs.end())
        return;
    const auto onPress = grab->second.handlers.onPress;
    onPress({.modifiers = m_keyboard.modifiers(m_modifiers), .isRepeat = true, .time = m_time});
}

} // namespace Kovrel
