#pragma once

#include <QString>

#include <expected>
#include <functional>

namespace Kovrel {

// A colour that was picked, as "#RRGGBB"; else why none can be, in the words that follow a colon, for people, and empty
// when the user wanted none.
using PickedColor = std::expected<QString, QString>;

// Hears of it once.
using ColorCompletion = std::function<void(const PickedColor& hex)>;

// Lets the user point at a colour on the screen. Main thread.
using ColorPick = std::function<void(ColorCompletion)>;

} // namespace Kovrel
