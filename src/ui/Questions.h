#pragma once

#include "model/Question.h"

#include <functional>

class QWidget;

namespace Kovrel {

namespace Questions {

// Asks in a window of its own over another one, which takes no clicks meanwhile. One of the two is called, and neither
// once the other window has gone.
void ask(QWidget& over, const Question& question, std::function<void()> wanted, std::function<void()> unwanted = [] {});

} // namespace Questions

} // namespace Kovrel
