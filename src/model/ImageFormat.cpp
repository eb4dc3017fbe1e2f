#include "model/ImageFormat.h"

namespace Kovrel {

std::optional<ImageFormat> imageFormatForExtension(const QString& extension)
{
    const QString lower = extension.toLower();
    if (lower == "jpg")
        return ImageFormat::jpeg;
    if (lower == "heif")
        return ImageFormat::heic;
    if (lower == "tif")
        return ImageFormat::tiff;
    return fromRawString<ImageFormat>(lower);
}

} // namespace Kovrel
