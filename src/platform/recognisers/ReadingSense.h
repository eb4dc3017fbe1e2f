#pragma once

#include <QString>

namespace Kovrel {

// Whether what was read is text, or what a recogniser sees in icons, drawings and photographs. Stateless; any thread.
namespace ReadingSense {

// `confidence` is the recogniser's, from 0 to 1; `blankShare` is how much of the line's box is clean ground.
bool isText(const QString& text, float confidence, double blankShare);

} // namespace ReadingSense

} // namespace Kovrel
