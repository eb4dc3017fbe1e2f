// contact_sheet: bench_contact_sheet FOLDER writes what the editor can draw into pictures, to be looked at.

#include "bench/BackdropSheet.h"
#include "bench/MarkSheet.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

using namespace Kovrel;

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "bench_contact_sheet FOLDER\n");
        return 2;
    }
    const QDir folder(argv[1]);
    bool isWritten = folder.mkpath(".");
    for (const double scale : {1.0, 2.0}) {
        for (const auto& [name, image] : Bench::BackdropSheet::sheets(scale))
            isWritten &= image.save(folder.filePath(QString("backdrop-%1@%2x.png").arg(name).arg(scale)));
        for (const bool isDark : {false, true}) {
            const QString ground = QString("%1@%2x.png").arg(isDark ? "dark" : "light").arg(scale);
            isWritten &= Bench::markSheet(scale, isDark).save(folder.filePath("marks-" + ground));
            isWritten &= Bench::spotlightSheet(scale, isDark).save(folder.filePath("spotlights-" + ground));
        }
    }
    return isWritten ? 0 : 1;
}
