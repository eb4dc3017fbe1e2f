#pragma once

#include "platform/Displays.h"
#include "platform/MainLoop.h"
#include "platform/PanelShapes.h"
#include "ports/Toasts.h"

#include <QPointer>

namespace Kovrel {

class ToastPanel;

// Shows at most one toast, at the top right of a screen, and takes it away after its linger. Main thread.
class ToastController : public Toasts {
public:
    ToastController(MainLoop& loop, Displays& displays, PanelShapes& shapes);
    ~ToastController() override;

    void present(ToastContent content, std::optional<quint32> displayID, bool sound) override;
    void update(ToastContent content, bool sound) override;
    void showSaved(const QString& path, std::optional<quint32> displayID) override;
    void armCountdown(std::optional<double> seconds) override;
    void dismiss(bool animated) override;
    bool setHiddenForCapture(bool isHidden) override;

private:
    double linger() const;
    void removeExiting();
    void cancelDismissal();

    MainLoop& m_loop;
    Displays& m_displays;
    PanelShapes& m_shapes;
    ToastContent m_content;
    std::optional<quint32> m_lastDisplay;
    QPointer<ToastPanel> m_panel;
    QPointer<ToastPanel> m_exitingPanel; // still fading out
    MainLoop::TimerID m_dismissal = 0;
    bool m_isHiddenForCapture = false;
};

} // namespace Kovrel
