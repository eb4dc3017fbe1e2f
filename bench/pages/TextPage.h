#pragma once

#include <QImage>
#include <QStringList>

namespace Kovrel::Bench {

// A generated picture and what stands in it.
struct TextPage {
    QString name; // its kind and number, and how it was drawn
    QString kind;
    QImage image;      // Format_RGB32
    QStringList texts; // what was written at one place each: lines, or the cells of a table
    QString languages; // as the command tesseract takes them
};

} // namespace Kovrel::Bench
