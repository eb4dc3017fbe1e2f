#pragma once

#include <QStringList>

#include <optional>

namespace Kovrel {

// Versions as package managers write them: the program's own with a number before it and more behind it, "1:1.3-2".
namespace PackageVersion {

// The program's own part of the newest of them; no value where none is newer than the one that runs. What is no version
// is never newer.
std::optional<QString> newest(const QStringList& versions, const QString& running);

} // namespace PackageVersion

} // namespace Kovrel
