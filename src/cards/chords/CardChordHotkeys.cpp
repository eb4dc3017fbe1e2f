#include "cards/chords/CardChordHotkeys.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QPointer>
#include <QWindow>

#include <algorithm>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.cards")

bool keyboardIsElsewhere()
{
    return QGuiApplication::focusWindow() != nullptr;
}

QString refusal(const KeyCombo& combo, KeyGrabs::Status status)
{
    return QString("Kovrel: card chord %1 unavailable (status %2)").arg(combo.text()).arg(status);
}

} // namespace

CardChordHotkeys::CardChordHotkeys(MainLoop& loop, KeyGrabs& keys)
    : m_loop(loop), m_keys(keys), m_layoutChanges(keys.onLayoutChange([this] { scheduleReconcile(); }))
{
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &m_context, [this] { scheduleReconcile(); });
    watchFocusWindow();
}

CardChordHotkeys::~CardChordHotkeys()
{
    letGo();
}

void CardChordHotkeys::arm(Handler handler)
{
    m_handler = std::move(handler);
    reconcile();
}

void CardChordHotkeys::release()
{
    m_handler = nullptr;
    letGo();
}

// Later, since the focus goes from one window to the next by way of none.
void CardChordHotkeys::scheduleReconcile()
{
    m_loop.post([this, context = QPointer(&m_context)] {
        if (context)
            reconcile();
    });
}

// A window that is destroyed while it has the focus takes it along without a word.
void CardChordHotkeys::watchFocusWindow()
{
    QObject::disconnect(m_endOfFocus);
    if (const QWindow* window = QGuiApplication::focusWindow())
        m_endOfFocus = QObject::connect(window, &QObject::destroyed, &m_context, [this] { scheduleReconcile(); });
}

void CardChordHotkeys::reconcile()
{
    watchFocusWindow();
    if (m_handler && !keyboardIsElsewhere())
        claim();
    else
        letGo();
}

void CardChordHotkeys::claim()
{
    for (const CardChordKeys& keys : allCardChords)
        if (!m_claims.contains(keys.chord))
            claim(keys);
}

void CardChordHotkeys::claim(const CardChordKeys& keys)
{
    const bool wasRefused = m_known.contains(keys.chord) && m_known[keys.chord] != keys.combo;
    m_known[keys.chord] = {};
    for (const KeyCombo& combo : {keys.combo, keys.alternative()}) {
        const auto onPress = [this, chord = keys.chord](KeyGrabs::Press press) {
            if (!press.isRepeat)
                fire(chord);
        };
        if (const auto grab = m_keys.grab(combo, {.onPress = onPress})) {
            m_claims.emplace(keys.chord, Claim{*grab, combo});
            m_known[keys.chord] = combo;
            return;
        } else if (!wasRefused) {
            qCWarning(log, "%s", qUtf8Printable(refusal(combo, grab.error())));
        }
    }
}

void CardChordHotkeys::letGo()
{
    for (const auto& [chord, claimed] : std::exchange(m_claims, {}))
        m_keys.release(claimed.grab);
}

void CardChordHotkeys::fire(CardChord chord) const
{
    if (const Handler handler = m_handler)
        handler(chord);
}

std::optional<KeyCombo> CardChordHotkeys::keysOf(CardChord chord) const
{
    const auto known = m_known.find(chord);
    return known != m_known.end() ? known->second : allCardChords[size_t(chord)].combo;
}

std::optional<KeyCombo> CardChordHotkeys::keysOf(CardQuickAction action) const
{
    const auto* const keys = std::ranges::find(allCardChords, action, &CardChordKeys::action);
    return keys == allCardChords.end() ? std::nullopt : keysOf(keys->chord);
}

} // namespace Kovrel
