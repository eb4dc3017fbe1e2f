#pragma once

#include <QString>

namespace Kovrel {

// How texts are made alike before they are compared, by everything that searches. Stateless; any thread.
namespace TextFolding {

// The letters U+00C0 to U+024F without their diacritics and in lower case, where that is a single code point: É and é
// become e, Ø becomes ø, which has no mark to lose. Everything else stays, so plain ASCII comes back as it is.
QString fold(const QString& text);

// What two texts have in common when neither case nor accents count: composed (Unicode NFC), folded, in lower case,
// and folded again, as lower case can bring new letters. Of text whose code units all lie below U+0300, every one
// becomes exactly one.
QString comparable(const QString& text);

} // namespace TextFolding

} // namespace Kovrel
