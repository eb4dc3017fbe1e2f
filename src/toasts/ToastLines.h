#pragma once

#include <QFont>
#include <QStringList>

namespace Kovrel {

// A text of a toast in the few lines that it has. Stateless; threads that may lay out text.
namespace ToastLines {

// Paths become shorter before anything else does: what went wrong is read, not guessed.
QStringList of(const QString& text, const QFont& font, double width, qsizetype mostLines);

} // namespace ToastLines

} // namespace Kovrel
