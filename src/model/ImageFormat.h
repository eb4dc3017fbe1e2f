#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// The output formats. The raw string is also the file extension.
enum class ImageFormat { png, jpeg, heic, tiff };

template <>
struct RawStrings<ImageFormat> {
    static constexpr std::array table{
        std::pair{ImageFormat::png, "png"},
        std::pair{ImageFormat::jpeg, "jpeg"},
        std::pair{ImageFormat::heic, "heic"},
        std::pair{ImageFormat::tiff, "tiff"},
    };
};

// The format that a file's extension names, in any case; also "jpg", "heif" and "tif".
std::optional<ImageFormat> imageFormatForExtension(const QString& extension);

} // namespace Kovrel
