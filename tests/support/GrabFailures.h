#pragma once

#include "platform/ScreenPixels.h"

#include <optional>

namespace Kovrel::Testing {

// Why a grab failed; no value when it did not.
inline std::optional<GrabFailure> failureOf(const GrabbedImage& image)
{
    return image ? std::nullopt : std::optional(image.error());
}

} // namespace Kovrel::Testing
