#include "platform/plugins/Plugins.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>

#include <dlfcn.h>

namespace Kovrel {

namespace {

const int anchor = 0; // lies in the program or the library that this code was linked into

QDir ownFolder()
{
    Dl_info info{};
    dladdr(&anchor, &info);
    return QFileInfo(QFile::decodeName(info.dli_fname)).absoluteDir();
}

} // namespace

std::expected<void*, QString> Plugins::find(const QString& name, const char* symbol)
{
    static const QDir own = ownFolder();
    const QString file = "libkovrel-" + name + ".so";
    for (const QString& candidate : {own.filePath(file), own.filePath("../lib/kovrel/" + file)}) {
        if (!QFileInfo::exists(candidate))
            continue;
        QLibrary library(candidate);
        library.setLoadHints(QLibrary::PreventUnloadHint);
        if (void* const address = reinterpret_cast<void*>(library.resolve(symbol)))
            return address;
        return std::unexpected(QCoreApplication::translate("Plugins", "The part %1 of Kovrel cannot be used: %2")
                                   .arg(file, library.errorString()));
    }
    return std::unexpected(QCoreApplication::translate("Plugins", "The part %1 of Kovrel is not installed.").arg(file));
}

} // namespace Kovrel
