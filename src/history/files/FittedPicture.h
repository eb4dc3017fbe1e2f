#pragma once

#include "history/files/HistoryFiles.h"

#include <QImage>

namespace Kovrel {

// Pictures of captures as large as they are shown: as large as they fit within bounds, in pixels, and never larger than
// they are. Null where there is none. Not on the main thread: it decodes.
namespace FittedPicture {

// Of the small picture, which has little to show in large bounds.
QImage thumbnail(const HistoryFiles& files, QUuid id, QSize bounds);
// As the capture looks.
QImage full(const HistoryFiles& files, QUuid id, QSize bounds);

} // namespace FittedPicture

} // namespace Kovrel
