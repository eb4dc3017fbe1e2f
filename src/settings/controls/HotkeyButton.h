#pragma once

#include "settings/hotkeys/HotkeyRecording.h"
#include "settings/rows/SettingControl.h"
#include "ui/controls/PlainButton.h"

#include <QTimer>

namespace Kovrel {

// A key combination. After a click it listens to the whole keyboard until it has another one, or is left.
class HotkeyButton : public PlainButton {
    Q_OBJECT

public:
    explicit HotkeyButton(SettingControls::Hotkey kind);

    void setCombo(std::optional<KeyCombo> combo);

    bool isListening() const { return m_listening.has_value(); }

    QSize sizeHint() const override;

    // Nobody waits with an open recorder for longer; other programs want the keyboard.
    static constexpr std::chrono::seconds patience{20};

Q_SIGNALS:
    void recorded(qint64 stored); // 0: cleared

protected:
    QColor textColor() const override;
    QString shownText() const override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void toggle();
    void listen();
    void stop();
    void take(const KeyGrabs::Typed& typed);

    SettingControls::Hotkey m_kind;
    std::optional<KeyCombo> m_combo;
    std::optional<Subscription> m_listening;
    HotkeyRecording::Waiting m_waiting;
    bool m_isRefused = false; // another program holds the keyboard
    QTimer m_patience;
};

} // namespace Kovrel
