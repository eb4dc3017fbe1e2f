#pragma once

#include "platform/Display.h"

namespace Kovrel {

// Where toasts stand. Stateless; any thread.
namespace ToastPlacement {

// The card at the upper right of what a display has free, in global points. `fontScale`: how much larger the desktop's
// font is than usual; the card grows with it, and stays on the display.
Rect card(const Display& display, double fontScale);

// Where the card's close button takes clicks, around a corner of the card.
constexpr double closeSquare = 34;

} // namespace ToastPlacement

} // namespace Kovrel
