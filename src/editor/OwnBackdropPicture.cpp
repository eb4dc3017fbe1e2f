#include "editor/OwnBackdropPicture.h"

namespace Kovrel {

std::optional<QString> OwnBackdropPicture::path(const BackdropFill& fill)
{
    const bool isOwn = fill.kind == BackdropFill::Kind::picture && fill.value.startsWith('/');
    return isOwn ? std::optional(fill.value) : std::nullopt;
}

std::optional<std::expected<QImage, ImageCodec::Failure>> OwnBackdropPicture::read(const BackdropFill& fill)
{
    const auto file = path(fill);
    return file ? std::optional(ImageCodec::decodeFile(*file)) : std::nullopt;
}

} // namespace Kovrel
