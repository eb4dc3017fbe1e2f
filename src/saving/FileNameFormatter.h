#pragma once

#include <QDateTime>
#include <QString>

namespace Kovrel {

// File names from the user's template.
namespace FileNameFormatter {

// The base name, without an extension: %Y, %m, %d, %H, %M and %S stand for parts of the local time; what file systems
// or shells dislike becomes a hyphen. Never empty.
QString format(const QString& fileNameTemplate, const QDateTime& date);

} // namespace FileNameFormatter

} // namespace Kovrel
