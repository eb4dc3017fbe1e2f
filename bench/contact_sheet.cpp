#include "bench/MarkSheet.h"

#include <QGuiApplication>

using namespace Kovrel;

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QString folder = argv[1];
    for (const bool isDark : {false, true})
        for (const double scale : {1.0, 2.0}) {
            Bench::markSheet(scale, isDark)
                .save(folder + QString("/marks-%1-%2.png").arg(isDark ? "dark" : "light").arg(scale));
            Bench::spotlightSheet(scale, isDark)
                .save(folder + QString("/spot-%1-%2.png").arg(isDark ? "dark" : "light").arg(scale));
        }
}
