#include "ui/AppWindow.h"

#include "ui/LookChanges.h"
#include "ui/tokens/Theme.h"

#include <QCursor>
#include <QGuiApplication>
#include <QHideEvent>
#include <QPalette>
#include <QRegularExpression>
#include <QScreen>

namespace Kovrel {

namespace {

constexpr QMargins mostFrame(8, 40, 8, 8); // that desktops put around a window, in points

} // namespace

AppWindow::AppWindow()
{
    takeColors();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &AppWindow::takeColors);
}

void AppWindow::comeForward()
{
    showNormal();
    raise();
    activateWindow();
}

// Desktops place windows well on one screen; of several, not all take the one on which somebody is at work.
void AppWindow::placeWherePointerIs(QSize size)
{
    const QScreen* const pointed = QGuiApplication::screenAt(QCursor::pos());
    const QRect room = (pointed ? pointed : screen())->availableGeometry().marginsRemoved(mostFrame);
    QRect place({}, size.boundedTo(room.size()));
    place.moveCenter(room.center());
    QGuiApplication::screens().size() > 1 ? setGeometry(place) : resize(place.size());
}

void AppWindow::rememberSize(Preferences& preferences, const SettingKey<QString>& key, QSize usual)
{
    static const QRegularExpression form("^([1-9][0-9]{1,4})x([1-9][0-9]{1,4})( maximized)?$");
    const auto kept = form.match(preferences.get(key));
    const QSize size = kept.hasMatch() ? QSize(kept.captured(1).toInt(), kept.captured(2).toInt()) : usual;
    placeWherePointerIs(size);
    if (kept.hasCaptured(3))
        setWindowState(Qt::WindowMaximized);
    m_keepSize = [&preferences, &key](const QString& text) { preferences.set(key, text); };
}

// One that is only minimized is told by the desktop, and keeps its size anyway.
void AppWindow::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    const QSize size = isMaximized() ? normalGeometry().size() : this->size();
    if (m_keepSize && !event->spontaneous())
        m_keepSize(QString("%1x%2%3").arg(size.width()).arg(size.height()).arg(isMaximized() ? " maximized" : ""));
}

void AppWindow::takeColors()
{
    setPalette(Theme::current().palette());
}

} // namespace Kovrel
