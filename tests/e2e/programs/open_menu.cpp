#include <QApplication>
#include <QMenu>

// Shows a red menu in the screen's corner until it is closed or killed. As every menu, it holds pointer and keyboard.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMenu menu;
    menu.setStyleSheet("background: #ff0000; color: #ff0000");
    menu.addAction("An entry that is wide enough to be seen");
    QObject::connect(&menu, &QMenu::aboutToHide, qApp, &QApplication::quit);
    menu.popup({0, 0});
    return QApplication::exec();
}
