#pragma once

#include "bench/pages/TextPage.h"

namespace Kovrel::Bench {

// Pages of every kind that people capture. Needs a QGuiApplication and the fonts that `missingFonts` asks for.
namespace PageKinds {

QStringList names();

// The same seed and number give the same page, as long as the fonts are the same.
TextPage page(const QString& kind, quint32 seed, int number);

QStringList missingFonts();

} // namespace PageKinds

} // namespace Kovrel::Bench
