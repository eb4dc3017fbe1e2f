#include "toasts/ToastController.h"

#include "toasts/ToastPanel.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr double lingerPlain = 1.8;
constexpr double lingerTappable = 3.5;
constexpr double reLinger = 2.0;

} // namespace

ToastController::ToastController(MainLoop& loop, Displays& displays, PanelShapes& shapes)
    : m_loop(loop), m_displays(displays), m_shapes(shapes)
{
}

ToastController::~ToastController()
{
    cancelDismissal();
    delete m_panel;
    delete m_exitingPanel;
}

void ToastController::present(ToastContent content, std::optional<quint32> displayID, bool)
{
    dismiss(false);
    const DisplayList displays = m_displays.all();
    if (displays.empty())
        return;
    const Display* display = displayID ? displayWithID(displays, *displayID) : nullptr;
    m_content = std::move(content);
    m_lastDisplay = displayID;
    m_panel = new ToastPanel(m_content, display ? *display : displays.front(), m_shapes, m_displays.isComposited());
    QObject::connect(m_panel, &ToastPanel::closeClicked, m_panel, [this] {
        const auto onClose = m_content.onClose;
        dismiss(true);
        if (onClose)
            onClose();
    });
    if (!m_isHiddenForCapture)
        m_panel->popIn();
    armCountdown({});
}

void ToastController::update(ToastContent content, bool sound)
{
    if (!m_panel) {
        present(std::move(content), m_lastDisplay, sound);
        return;
    }
    m_content = std::move(content);
    m_panel->setContent(m_content);
    armCountdown({});
}

void ToastController::showSaved(const QString& path, std::optional<quint32> displayID)
{
    present({.message = "Saved to " + QFileInfo(path).dir().dirName()}, displayID, true);
}

double ToastController::linger() const
{
    return m_content.dwell.value_or(m_content.onTap ? lingerTappable : lingerPlain);
}

void ToastController::armCountdown(std::optional<double> seconds)
{
    cancelDismissal();
    if (m_content.showsSpinner)
        return;
    const auto delay = std::chrono::milliseconds(qint64(1000 * seconds.value_or(linger())));
    m_dismissal = m_loop.after(delay, [this] {
        m_dismissal = 0;
        dismiss(true);
    });
}

void ToastController::cancelDismissal()
{
    m_loop.cancel(std::exchange(m_dismissal, 0));
}

void ToastController::dismiss(bool animated)
{
    cancelDismissal();
    removeExiting();
    m_exitingPanel = std::exchange(m_panel, nullptr);
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
    if (isHidden) {
        m_panel->vanish();
    } else {
        m_panel->reappear();
        armCountdown(std::min(linger(), reLinger));
    }
    return true;
}

} // namespace Kovrel
