#pragma once

#include "platform/Displays.h"
#include "platform/MainLoop.h"
#include "platform/PanelShapes.h"
#include "platform/Pointer.h"
#include "platform/Workers.h"
#include "ports/Ports.h"

namespace Kovrel {

// What pins are built on. All of it outlives them.
struct PinServices {
    MainLoop& loop;
    Workers& workers;
    Displays& displays;
    Pointer& pointer;
    PanelShapes& shapes;
    const Ports& ports;
};

} // namespace Kovrel
