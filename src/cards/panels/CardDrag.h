#pragma once

#include <QImage>

class QObject;

namespace Kovrel {

namespace CardDrag {

// Drags a file out of the program, as a copy, until it is dropped or given up. Events are handled meanwhile, so that
// whoever calls may have gone afterwards; `source` has not. Main thread.
void run(QObject& source, const QString& file, const QImage& face, double scale);

} // namespace CardDrag

} // namespace Kovrel
