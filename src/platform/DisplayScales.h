#pragma once

#include "platform/Displays.h"

#include <QString>

namespace Kovrel {

// The scales of displays as one line of text, "DP-1=1;DP-2=1.5", to be handed to another program in its environment.
namespace DisplayScales {

inline constexpr const char* variable = "KOVREL_DISPLAY_SCALES";

QString write(const DisplayList& displays);
// The scale of the display with a name: 1 for those that the text does not tell.
ScaleLookup read(const QString& text);

} // namespace DisplayScales

} // namespace Kovrel
