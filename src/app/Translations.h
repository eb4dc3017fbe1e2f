#pragma once

#include <QLocale>
#include <QStringList>

#include <optional>

class QCoreApplication;

namespace Kovrel {

// What windows, menus and toasts say, in the language of the desktop, as far as Kovrel knows it; else in English. What
// is said on the command line is English always: programs read it, too.
namespace Translations {

// The first of these languages that Kovrel is translated into, as tags ("de-AT"); nothing where English comes first, or
// none is known.
std::optional<QLocale> chosen(const QStringList& preferred);

// Before anything is said. Windows are mirrored where the language is written from right to left.
void install(QCoreApplication& application);

} // namespace Translations

} // namespace Kovrel
