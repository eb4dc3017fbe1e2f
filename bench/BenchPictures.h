#pragma once

#include <QImage>
#include <QString>

#include <vector>

namespace Kovrel::Bench {

struct Picture {
    QString name;
    QImage image; // Format_RGB32
};

// The kinds of screens that commands and encoders are measured with, the same on every machine with the same fonts.
// Needs a QGuiApplication.
std::vector<Picture> pictures(QSize size = {3840, 2160});

} // namespace Kovrel::Bench
