#pragma once

#include <QImage>
#include <QString>

#include <vector>

namespace Kovrel::Bench {

// What backdrops look like, to be looked at. Needs a QGuiApplication.
namespace BackdropSheet {

struct Sheet {
    QString name; // of a file, without extension
    QImage image;
};

// Every fill of the catalogue, on a light and a dark capture, and every shadow, alignment, aspect ratio, frame and kind
// of capture, at a scale of pixels to a point.
std::vector<Sheet> sheets(double scale);

} // namespace BackdropSheet

} // namespace Kovrel::Bench
