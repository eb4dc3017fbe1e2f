#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace Kovrel {

// Hears of a colour that was picked, as "#RRGGBB", once; nothing when none was.
using ColorCompletion = std::function<void(std::optional<QString> hex)>;

// Lets the user point at a colour on the screen. Main thread.
using ColorPick = std::function<void(ColorCompletion)>;

} // namespace Kovrel
