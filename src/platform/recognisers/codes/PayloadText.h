#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Kovrel {

// What the bytes in a code say.
namespace PayloadText {

// The bytes as UTF-8, which most programs write whatever the standard says. No value when they are not that, or none.
// Control characters may be part of a message.
std::optional<QString> utf8(const QByteArray& bytes);

// Bytes of which nothing is known: UTF-8 where they are that, else the encoding that ZXing guesses, checked.
std::optional<QString> decoded(const QByteArray& bytes);

// A guessed text, unless it holds what no text does: replaced characters and controls, but for white space and the
// separators of structured messages (GS1, ISO 15434).
std::optional<QString> checked(const QString& text);

} // namespace PayloadText

} // namespace Kovrel
