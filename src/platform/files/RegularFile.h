#pragma once

#include <QByteArray>
#include <QString>

#include <expected>

namespace Kovrel {

// Files that somebody named. Any thread but the main one.
namespace RegularFile {

// All of it. The error is one line for people; folders, pipes and other things that are no regular file are errors, and
// never waited for. So are files of more than `mostBytes`.
std::expected<QByteArray, QString> read(const QString& path, qint64 mostBytes);

} // namespace RegularFile

} // namespace Kovrel
