#pragma once

#include "history/files/HistoryFiles.h"

#include <QByteArray>
#include <QImage>

#include <optional>

namespace Kovrel {

// The small picture of a capture. Not on the main thread: it encodes and decodes.
namespace ThumbnailFile {

// Of the longer side, in pixels.
inline constexpr int longestSide = 720;

// As a JPEG; nothing where memory is short.
std::optional<QByteArray> encoded(const QImage& capture);
// What is stored, else what can be made of the picture; null where there is neither.
QImage read(const HistoryFiles& files, QUuid id);

} // namespace ThumbnailFile

} // namespace Kovrel
