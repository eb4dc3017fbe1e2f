#pragma once

#include <QFont>
#include <QStringList>

namespace Kovrel {

// The second text of a toast in the two lines that it has. Stateless; threads that may lay out text.
namespace ToastLines {

// Paths become shorter before anything else does: what went wrong is read, not guessed.
QStringList of(const QString& text, const QFont& font, double width);

} // namespace ToastLines

} // namespace Kovrel
