#pragma once

#include "editor/backdrop/BackdropFill.h"
#include "platform/ImageCodec.h"

#include <optional>

namespace Kovrel {

// A backdrop's picture of the user's own, which its fill names by a path. Any thread but the main one.
namespace OwnBackdropPicture {

// The path; nothing for every other fill. Any thread.
std::optional<QString> path(const BackdropFill& fill);

// Nothing where the fill has none, a failure where it can't be read.
std::optional<std::expected<QImage, ImageCodec::Failure>> read(const BackdropFill& fill);

} // namespace OwnBackdropPicture

} // namespace Kovrel
