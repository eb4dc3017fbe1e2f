#pragma once

#include <QString>

namespace Kovrel {

// Text as it can be shown, whatever is in it. Stateless; any thread.
namespace PrintableText {

// Control characters, but for line ends and tabs, as escapes: \x1b. A terminal would obey them.
QString of(const QString& text);

} // namespace PrintableText

} // namespace Kovrel
