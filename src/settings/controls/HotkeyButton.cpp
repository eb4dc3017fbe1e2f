#include "settings/controls/HotkeyButton.h"

#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QFocusEvent>
#include <QPainter>

namespace Kovrel {

namespace {

constexpr int usualWidth = 190;

// "Super+Shift+" while the key is missing.
QString textOf(quint32 modifiers)
{
    const QString combo = KeyCombo{0, modifiers}.title();
    return combo.left(combo.lastIndexOf('+') + 1);
}

} // namespace

HotkeyButton::HotkeyButton(SettingControls::Hotkey kind) : PlainButton(QString()), m_kind(std::move(kind))
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &HotkeyButton::stop);
    connect(this, &QPushButton::clicked, this, &HotkeyButton::toggle);
}

void HotkeyButton::setCombo(std::optional<KeyCombo> combo)
{
    m_combo = combo;
    setText(combo ? combo->title() : tr("None"));
}

QSize HotkeyButton::sizeHint() const
{
    return {int(usualWidth * Typography::scale()), PlainButton::sizeHint().height()};
}

QString HotkeyButton::shownText() const
{
    if (m_isRefused)
        return tr("The keyboard is in use");
    if (!isListening())
        return text();
    if (m_waiting.needsModifier)
        return tr("Add Ctrl, Alt or Super");
    return m_waiting.modifiers ? textOf(m_waiting.modifiers) + "…" : tr("Type a shortcut…");
}

QColor HotkeyButton::textColor() const
{
    const Theme& theme = Theme::current();
    if (isListening())
        return theme.accentText;
    return m_combo && !m_isRefused ? PlainButton::textColor() : theme.secondaryText;
}

void HotkeyButton::toggle()
{
    if (isListening())
        stop();
    else
        listen();
}

void HotkeyButton::listen()
{
    auto listening = m_kind.listen([this](const KeyGrabs::Typed& typed) { take(typed); });
    m_isRefused = !listening;
    if (listening) {
        m_listening = std::move(*listening);
        m_waiting = {};
        m_patience.start();
        setAccessibleDescription(tr("Type a shortcut. Backspace clears it, Escape leaves it."));
    }
    update();
}

void HotkeyButton::stop()
{
    m_patience.stop();
    m_listening.reset();
    m_isRefused = false;
    setAccessibleDescription({});
    update();
}

void HotkeyButton::take(const KeyGrabs::Typed& typed)
{
    const HotkeyRecording::Outcome outcome = HotkeyRecording::of(typed);
    if (const auto* const waiting = std::get_if<HotkeyRecording::Waiting>(&outcome)) {
        m_waiting = *waiting;
        update();
        return;
    }
    stop();
    if (const auto* const got = std::get_if<HotkeyRecording::Recorded>(&outcome))
        Q_EMIT recorded(got->combo ? got->combo->stored() : 0);
}

// The window seems to lose the focus to us when we take the keyboard.
void HotkeyButton::focusOutEvent(QFocusEvent* event)
{
    if (event->reason() != Qt::ActiveWindowFocusReason)
        stop();
    PlainButton::focusOutEvent(event);
}

void HotkeyButton::hideEvent(QHideEvent* event)
{
    stop();
    PlainButton::hideEvent(event);
}

void HotkeyButton::paintEvent(QPaintEvent* event)
{
    PlainButton::paintEvent(event);
    if (!isListening())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::current().accent, Stroke::focusRing));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), Radius::control, Radius::control);
}

} // namespace Kovrel
