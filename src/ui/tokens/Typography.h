#pragma once

#include <QFont>

namespace Kovrel {

enum class TextStyle {
    headline,
    emphasis, // what is said first, and what is done first
    control,
    body,
    caption,
};

// The sizes and weights of texts. They grow with the font that the desktop is set to. Main thread.
namespace Typography {

// How much larger texts are than on a usual desktop.
double scale();

QFont font(TextStyle style);

} // namespace Typography

} // namespace Kovrel
