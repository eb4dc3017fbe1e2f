#pragma once

#include <QStringList>

#include <optional>

namespace Kovrel {

// The program by which GNOME's settings are read and written. It takes some time: not for the main thread.
namespace Gsettings {

// What the program says; none when it fails, as for a schema that is not installed.
std::optional<QString> run(const QStringList& arguments);

} // namespace Gsettings

} // namespace Kovrel
