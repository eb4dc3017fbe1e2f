#include "ui/TitledWindows.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

namespace Kovrel {

namespace {

bool isTitled(const QWidget& widget)
{
    return widget.windowType() == Qt::Window && !(widget.windowFlags() & Qt::FramelessWindowHint) && widget.isVisible();
}

QWidgetList titledWidgets()
{
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget* widget) { return !isTitled(*widget); });
    return windows;
}

void bringToFront(QWidget& window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

std::vector<TitledWindows::Entry> TitledWindows::list()
{
    std::vector<Entry> entries;
    for (QWidget* widget : titledWidgets())
        entries.push_back({widget->windowTitle(), widget->isActiveWindow(), [window = QPointer(widget)] {
                               if (window)
                                   bringToFront(*window);
                           }});
    return entries;
}

bool TitledWindows::bringForward()
{
    const QWidgetList windows = titledWidgets();
    for (QWidget* window : windows)
        bringToFront(*window);
    return !windows.isEmpty();
}

void TitledWindows::close()
{
    for (QWidget* window : titledWidgets())
        window->close();
}

} // namespace Kovrel
