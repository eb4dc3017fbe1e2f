#pragma once

#include "ui/AppWindow.h"

namespace Kovrel {

class Notice;
class PrimaryButton;
class WindowHeader;

// What stands in the way of capturing on this desktop, and what to do about it. Main thread.
class PermissionWindow : public AppWindow {
    Q_OBJECT

public:
    struct Services {
        // Why nothing can be captured; empty where nothing stands in the way.
        std::function<QString()> reason;
        QStringList steps; // what helps, one thing after the other
        // Nothing stands in the way any more.
        std::function<void()> cleared;
    };

    explicit PermissionWindow(Services services);

    void present();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeSteps();
    void showReason(const QString& reason);
    void check();
    void setWidths();

    Services m_services;
    QWidget* m_content;
    WindowHeader* m_header;
    Notice* m_still = nullptr;
    PrimaryButton* m_check = nullptr;
};

} // namespace Kovrel
