// save_panel SUGGESTED accept|reject: asks for a file name, answers as a user would and prints what the program gets.

#include "platform/desktop/QtFilePanel.h"

#include <QApplication>
#include <QFileDialog>
#include <QTimer>

#include <cstdio>

using namespace Kovrel;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QtFilePanel panel;
    bool isInsideAsk = true;
    panel.ask(application.arguments().at(1), nullptr, [&](const std::optional<QString>& path) {
        std::printf("%s%s\n", isInsideAsk ? "too early " : "", path ? qPrintable(*path) : "cancelled");
        QTimer::singleShot(0, &application, &QApplication::quit);
    });
    isInsideAsk = false;
    QTimer::singleShot(0, &application, [&] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::topLevelWidgets().value(0));
        QMetaObject::invokeMethod(dialog, application.arguments().at(2).toLatin1().constData());
    });
    return application.exec();
}
