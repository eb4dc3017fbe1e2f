#pragma once

#include <QStringList>

namespace Kovrel {

namespace LoadedLibraries {

// The file names of the shared libraries of this process whose name begins with one of these, as they are on the disk:
// with their versions. Sorted. Blocks on the disk; any thread.
QStringList named(const QStringList& beginnings);

} // namespace LoadedLibraries

} // namespace Kovrel
