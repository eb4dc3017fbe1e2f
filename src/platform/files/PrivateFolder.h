#pragma once

#include <QString>

namespace Kovrel {

// Folders that nobody else can look into.
namespace PrivateFolder {

// Makes the folder, and those above it where they are missing. False when there is no such folder afterwards.
bool make(const QString& path);

} // namespace PrivateFolder

} // namespace Kovrel
