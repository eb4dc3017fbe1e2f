#pragma once

#include "platform/ImageCodec.h"

#include <QByteArray>
#include <QString>

#include <expected>

namespace Kovrel {

using SaveFailure = ImageCodec::Failure;

// Files that are there whole or not at all, also when the program is killed in the middle or the disk is full. Any
// thread but the main one.
namespace AtomicFile {

enum class Access : unsigned { onlyOwner = 0600, everyoneReads = 0644 };

// Puts the bytes under a path, in place of a regular file that is there; anything else that is there is refused. Such a
// file keeps its place where it is reached through a symbolic link, and its permissions where others may read it; if it
// had content, the new one is on the disk before the old one goes. A new file is readable as `access` says, less what
// the user's umask takes away. Done is what the file system has taken: what it says at the file's closing counts, too.
std::expected<void, SaveFailure> write(const QString& path, const QByteArray& bytes, Access access);

// The same, and the bytes and their name are on the disk when it is done.
std::expected<void, SaveFailure> writeThrough(const QString& path, const QByteArray& bytes, Access access);

// "FOLDER: No space left on device": the last system error in words, about a path.
SaveFailure systemFailure(const QString& path, int error);

} // namespace AtomicFile

} // namespace Kovrel
