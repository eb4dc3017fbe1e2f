#include "history/files/FittedPicture.h"

#include "history/files/ThumbnailFile.h"
#include "imaging/Resampling.h"
#include "platform/ImageCodec.h"

namespace Kovrel {

QImage FittedPicture::thumbnail(const HistoryFiles& files, QUuid id, QSize bounds)
{
    return Resampling::fitted(ThumbnailFile::read(files, id), bounds);
}

QImage FittedPicture::full(const HistoryFiles& files, QUuid id, QSize bounds)
{
    const auto capture = ImageCodec::decodeFile(files.full(id));
    return capture ? Resampling::fitted(*capture, bounds) : QImage();
}

} // namespace Kovrel
