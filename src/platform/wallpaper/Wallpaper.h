#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <QString>

#include <optional>

namespace Kovrel {

// What a desktop's settings say of the picture behind all windows.
struct Wallpaper {
    enum class Fit { tiled, centred, contained, stretched, covering, spanned };

    QString path; // of the picture; empty is none
    Fit fit = Fit::covering;
    QColor colour = Qt::black; // where there is no picture
    QColor otherColour = {};   // what a gradient ends with
    std::optional<Qt::Orientation> gradient = {};

    bool operator==(const Wallpaper&) const = default;

    // As the desktop shows it on a display, in root pixels as the desktop's whole rectangle. No value when there is a
    // picture that can't be read here. Decodes: not for the main thread.
    std::optional<QImage> painted(const QRect& display, const QRect& desktop) const;
};

} // namespace Kovrel
