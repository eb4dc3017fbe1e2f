#include "history/files/ThumbnailFile.h"

#include "imaging/Resampling.h"
#include "platform/ImageCodec.h"

namespace Kovrel {

namespace {

constexpr double quality = 0.85;

QImage small(const QImage& image)
{
    const int side = std::max(image.width(), image.height());
    if (side <= ThumbnailFile::longestSide)
        return image;
    return Resampling::reduced(image, double(side) / ThumbnailFile::longestSide).value_or(QImage());
}

} // namespace

std::optional<QByteArray> ThumbnailFile::encoded(const QImage& capture)
{
    const QImage thumbnail = small(capture);
    const auto jpeg = ImageCodec::encode(thumbnail, ImageFormat::jpeg, quality);
    return jpeg ? std::optional(*jpeg) : std::nullopt;
}

QImage ThumbnailFile::read(const HistoryFiles& files, QUuid id)
{
    if (const auto stored = ImageCodec::decodeFile(files.thumbnail(id)))
        return small(*stored);
    const auto capture = ImageCodec::decodeFile(files.full(id));
    return capture ? small(*capture) : QImage();
}

} // namespace Kovrel
