#include "app/foundation/AppPaths.h"

#include <QCoreApplication>
#include <QStandardPaths>

namespace Kovrel {

namespace {

QString below(QStandardPaths::StandardLocation location, const char* name)
{
    return QStandardPaths::writableLocation(location) + '/' + name;
}

} // namespace

QString AppPaths::preferencesFile()
{
    return below(QStandardPaths::GenericConfigLocation, "kovrel/kovrel.conf");
}

QString AppPaths::dataFolder()
{
    return below(QStandardPaths::GenericDataLocation, "Kovrel");
}

QString AppPaths::unsavedFolder()
{
    return dataFolder() + "/Unsaved";
}

QString AppPaths::reservationFolder()
{
    return dataFolder() + "/Reservations";
}

QString AppPaths::historyFolder()
{
    return dataFolder() + "/History";
}

QString AppPaths::temporaryFolder()
{
    return below(QStandardPaths::GenericCacheLocation, "kovrel/tmp");
}

QString AppPaths::screenshotTool()
{
    return QCoreApplication::applicationDirPath() + "/kovrel-screencapture";
}

} // namespace Kovrel
