#pragma once

#include <QStringList>

namespace Kovrel {

// How the program was started.
struct Launch {
    QStringList files;        // to be opened
    bool isLoginItem = false; // with the desktop: no window
    QString build;
    QString version;
};

} // namespace Kovrel
