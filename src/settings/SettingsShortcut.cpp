#include "settings/SettingsShortcut.h"

#include "ui/AppWindow.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace Kovrel {

SettingsShortcut::SettingsShortcut(std::function<void()> pressed) : m_pressed(std::move(pressed))
{
    qApp->installEventFilter(this);
}

bool SettingsShortcut::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    const auto* const widget = qobject_cast<QWidget*>(object);
    if (key.key() != Qt::Key_Comma || key.modifiers() != Qt::ControlModifier || !widget ||
        !qobject_cast<AppWindow*>(widget->window()))
        return false;
    m_pressed();
    return true;
}

} // namespace Kovrel
