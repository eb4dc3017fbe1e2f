#pragma once

#include <QImage>

class QObject;

namespace Kovrel {

// Files on their way out of the program.
namespace FileDrag {

struct Content {
    QString file;
    QByteArray png; // for programs that take pictures and no files; empty: there is none
};

// Drags a file out of the program, as a copy, until it is dropped or given up. Events are handled meanwhile, so that
// whoever calls may have gone afterwards; `source` has not. Main thread.
void run(QObject& source, const Content& content, const QImage& face, double scale);

} // namespace FileDrag

} // namespace Kovrel
