#pragma once

#include "platform/ImageCodec.h"

#include <QByteArray>
#include <QString>

#include <expected>

namespace Kovrel {

using SaveFailure = ImageCodec::Failure;

// Files that are there whole or not at all, also when the program is killed in the middle. Any thread.
namespace AtomicFile {

enum class Access : unsigned { onlyOwner = 0600, everyoneReads = 0644 };

// Puts the bytes under a path, in place of a regular file that is there. Such a file keeps its permissions and, where
// it is reached through a symbolic link, its place; if it had content, the new one is on the disk before the old one
// goes. A new file is readable as `access` says, less what the user's umask takes away.
std::expected<void, SaveFailure> write(const QString& path, const QByteArray& bytes, Access access);

// "FOLDER: No space left on device": the last system error in words, about a path.
SaveFailure systemFailure(const QString& path, int error);

} // namespace AtomicFile

} // namespace Kovrel
