#pragma once

class QCoreApplication;

namespace Kovrel {

// What windows, menus and toasts say, in the language of the desktop, as far as Kovrel knows it; else in English. What
// is said on the command line is English always: programs read it, too.
namespace Translations {

// Before anything is said. Windows are mirrored where the language is written from right to left.
void install(QCoreApplication& application);

} // namespace Translations

} // namespace Kovrel
