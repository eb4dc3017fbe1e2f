#include "toasts/ToastController.h"

#include "ports/CaptureEffects.h"
#include "toasts/ToastPanel.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace Kovrel {

ToastController::ToastController(MainLoop& loop, Displays& displays, PanelShapes& shapes, const Ports& ports)
    : m_displays(displays),
      m_shapes(shapes),
      m_ports(ports),
      m_countdown(loop, [this] { dismiss(true); }),
      m_displayChanges(displays.onChange([this] { displaysChanged(); }))
{
}

ToastController::~ToastController()
{
    delete m_panel;
    delete m_exitingPanel;
}

void ToastController::prewarm()
{
    const DisplayList displays = m_displays.all();
    if (displays.empty())
        return;
    ToastPanel panel({.message = "\u2026"}, displays.front(), m_shapes, m_displays.isComposited());
    panel.grab();
}

void ToastController::present(ToastContent content, std::optional<quint32> displayID, bool sound)
{
    dismiss(false);
    if (sound)
        playSoundOf(content);
    m_lastDisplay = displayID;
    if (const auto display = lastDisplay())
        show(std::move(content), *display);
}

void ToastController::show(ToastContent content, const Display& display)
{
    m_content = std::move(content);
    m_lastDisplay = display.id;
    m_panel = new ToastPanel(m_content, display, m_shapes, m_displays.isComposited());
    follow(*m_panel);
    if (!m_isHiddenForCapture)
        m_panel->popIn();
    updateHold();
    m_countdown.begin(m_content);
}

// Queued, since what is done then may end the panel, which must not happen while it handles the click. A second click
// finds a panel that shows no more.
void ToastController::follow(ToastPanel& panel)
{
    QObject::connect(
        &panel, &ToastPanel::tapped, &panel,
        [this, from = &panel] {
            if (from == m_panel)
                tapped();
        },
        Qt::QueuedConnection);
    QObject::connect(
        &panel, &ToastPanel::closeClicked, &panel,
        [this, from = &panel] {
            if (from == m_panel)
                closed();
        },
        Qt::QueuedConnection);
    QObject::connect(&panel, &ToastPanel::pointerInsideChanged, &panel, [this] { updateHold(); });
}

void ToastController::tapped()
{
    const auto onTap = m_content.onTap;
    if (!onTap) {
        closed();
        return;
    }
    dismiss(true);
    onTap();
}

void ToastController::closed()
{
    const auto onClose = m_content.onClose;
    dismiss(true);
    if (onClose)
        onClose();
}

void ToastController::update(ToastContent content, bool sound)
{
    if (!m_panel) {
        present(std::move(content), m_lastDisplay, sound);
        return;
    }
    if (sound)
        playSoundOf(content);
    m_content = std::move(content);
    m_panel->setContent(m_content);
    m_countdown.begin(m_content);
}

void ToastController::showSaved(const QString& path, std::optional<quint32> displayID)
{
    const QString folder = QFileInfo(path).dir().dirName();
    present({.message = QCoreApplication::translate("Toasts", "Saved to %1").arg(folder)}, displayID, true);
}

void ToastController::armCountdown(std::optional<double> seconds)
{
    if (m_panel)
        m_countdown.arm(seconds);
}

void ToastController::dismiss(bool animated)
{
    m_countdown.cancel();
    removeExiting();
    m_exitingPanel = std::exchange(m_panel, nullptr);
    updateHold();
    if (!m_exitingPanel)
        return;
    if (animated && !m_isHiddenForCapture)
        m_exitingPanel->fadeOut();
    else
        removeExiting();
}

void ToastController::removeExiting()
{
    if (m_exitingPanel)
        m_exitingPanel->vanish();
    delete m_exitingPanel;
}

bool ToastController::setHiddenForCapture(bool isHidden)
{
    if (std::exchange(m_isHiddenForCapture, isHidden) == isHidden)
        return false;
    const bool hadExiting = !m_exitingPanel.isNull();
    removeExiting();
    if (!m_panel)
        return hadExiting;
    if (isHidden)
        m_panel->vanish();
    else
        m_panel->reappear();
    updateHold();
    return true;
}

// One that nobody can see, or that somebody looks at, does not run out.
void ToastController::updateHold()
{
    m_countdown.setHeld(m_panel && (m_isHiddenForCapture || m_panel->isPointerInside()));
}

void ToastController::playSoundOf(const ToastContent& content) const
{
    if (!content.showsSpinner)
        m_ports.effects.tell(&CaptureEffects::playToastIfEnabled);
}

std::optional<Display> ToastController::lastDisplay() const
{
    const DisplayList displays = m_displays.all();
    if (displays.empty())
        return {};
    const Display* known = m_lastDisplay ? displayWithID(displays, *m_lastDisplay) : nullptr;
    return known ? *known : displays.front();
}

void ToastController::displaysChanged()
{
    const auto display = lastDisplay();
    if (m_panel && display)
        m_panel->standOn(*display);
}

} // namespace Kovrel
