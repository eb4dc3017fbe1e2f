#include "platform/processes/LoadedLibraries.h"

#include <QFileInfo>

#include <algorithm>

#include <link.h>

namespace Kovrel {

QStringList LoadedLibraries::named(const QStringList& beginnings)
{
    QStringList paths;
    const auto collect = [](dl_phdr_info* library, size_t, void* list) {
        static_cast<QStringList*>(list)->append(QString::fromLocal8Bit(library->dlpi_name));
        return 0;
    };
    ::dl_iterate_phdr(collect, &paths);
    QStringList names;
    for (const QString& path : paths) {
        const QString name = QFileInfo(QFileInfo(path).canonicalFilePath()).fileName();
        if (std::ranges::any_of(beginnings, [&](const QString& beginning) { return name.startsWith(beginning); }))
            names << name;
    }
    names.sort();
    return names;
}

} // namespace Kovrel
