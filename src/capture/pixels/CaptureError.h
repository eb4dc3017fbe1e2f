#pragma once

namespace Kovrel {

enum class CaptureError {
    noContent, // no display or window could be found to capture
};

} // namespace Kovrel
