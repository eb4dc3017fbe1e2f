// The least that a program of this toolkit with an item in the tray can cost.

#include <QApplication>
#include <QMenu>
#include <QPixmap>
#include <QSystemTrayIcon>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QPixmap dot(24, 24);
    dot.fill(Qt::blue);
    QMenu menu;
    menu.addAction("Quit", [] { QApplication::quit(); });
    QSystemTrayIcon item(dot);
    item.setContextMenu(&menu);
    item.show();
    return QApplication::exec();
}
