#include "ui/ScreenChrome.h"

namespace Kovrel {

Rect ScreenChrome::anchor(const Display& display)
{
    return display.visibleFrame.isEmpty() ? display.frame : display.visibleFrame;
}

} // namespace Kovrel
