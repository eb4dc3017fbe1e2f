#pragma once

#include <QString>

namespace Kovrel {

// The fixed places of the program's own files: XDG folders.
namespace AppPaths {

QString preferencesFile();
QString dataFolder(); // the account, captures that could not be saved where they should go
QString unsavedFolder();
QString reservationFolder();
QString historyFolder();
QString temporaryFolder(); // the user's own, mode 0700
QString screenshotTool();  // beside the program, or where it is installed

} // namespace AppPaths

} // namespace Kovrel
