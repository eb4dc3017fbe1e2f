#pragma once

#include <QString>

namespace Kovrel {

// The application under a captured rectangle.
struct SourceApp {
    QString name;       // for people: "Text Editor"
    QString identifier; // for programs: the desktop-file id, or the window class where there is none
    bool operator==(const SourceApp&) const = default;
};

} // namespace Kovrel
