#pragma once

#include <QString>

namespace Kovrel {

// What a command came to, for the process that sent it.
struct CommandAnswer {
    int exitCode = 0;
    QString output = {}; // standard output, as it stands
    QString error = {};  // one line, without its end
};

} // namespace Kovrel
