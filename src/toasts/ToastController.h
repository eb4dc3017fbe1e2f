#pragma once

#include "platform/Displays.h"
#include "platform/PanelShapes.h"
#include "ports/Ports.h"
#include "ports/Toasts.h"
#include "toasts/ToastCountdown.h"

#include <QPointer>

namespace Kovrel {

class ToastPanel;

// Shows at most one toast, at the top right of a screen, and takes it away after its linger. Main thread.
class ToastController : public Toasts {
public:
    // All of them outlive it; `ports` are asked for what is heard.
    ToastController(MainLoop& loop, Displays& displays, PanelShapes& shapes, const Ports& ports);
    ~ToastController() override;

    // Makes what the first toast would have to wait for.
    void prewarm();

    void present(ToastContent content, std::optional<quint32> displayID, bool sound) override;
    void update(ToastContent content, bool sound) override;
    void showSaved(const QString& path, std::optional<quint32> displayID) override;
    void armCountdown(std::optional<double> seconds) override;
    void dismiss(bool animated) override;
    bool setHiddenForCapture(bool isHidden) override;

private:
    void show(ToastContent content, const Display& display);
    void follow(ToastPanel& panel);
    void tapped();
    void closed();
    void displaysChanged();
    std::optional<Display> lastDisplay() const;
    void updateHold();
    void playSoundOf(const ToastContent& content) const;
    void removeExiting();

    Displays& m_displays;
    PanelShapes& m_shapes;
    const Ports& m_ports;
    ToastContent m_content;
    std::optional<quint32> m_lastDisplay;
    QPointer<ToastPanel> m_panel;
    QPointer<ToastPanel> m_exitingPanel; // still fading out
    ToastCountdown m_countdown;
    bool m_isHiddenForCapture = false;
    Subscription m_displayChanges;
};

} // namespace Kovrel
