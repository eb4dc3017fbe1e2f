#pragma once

#include "editor/backdrop/BackdropGradient.h"

#include <QImage>

#include <vector>

namespace Kovrel {

// A picture that is painted by arithmetic at any size: ridges, one before the other, on a gradient. Soft ones are
// silk or light, crisp ones paper, water or sand. Lengths are fractions of the canvas' height.
struct BackdropPicture {
    // One wave of a crest's outline.
    struct Wave {
        double amplitude = 0;
        double length = 1; // from one top to the next, as a fraction of the canvas' width
        double phase = 0;  // in wave lengths
        bool operator==(const Wave&) const = default;
    };

    // All that lies below a crest. Colours are hex texts with alpha.
    struct Ridge {
        double level = 0; // of the crest above the lower edge
        double slope = 0; // how much the crest rises over the canvas' width
        std::vector<Wave> waves;
        QString crest; // the colour at the crest,
        QString foot;  // and at `depth` below it and deeper
        double depth = 0.3;
        bool followsWaves = false; // below the waves, as in folds of cloth, or below their highest tops, as in mist
        double softness = 0;       // over how much the crest fades in; crisp when zero
        double shade = 0;          // how dark a shadow the ridge throws on what is behind it, 0 to 1,
        double shadeReach = 0.05;  // fading out so far above the crest
        bool operator==(const Ridge&) const = default;
    };

    QString id;
    QString name;
    BackdropGradient ground;
    std::vector<Ridge> ridges; // the farthest first
    bool operator==(const BackdropPicture&) const = default;

    // Softened by a Gaussian of standard deviation `sigma` pixels. Format_RGB32, dithered like a gradient. A null image
    // when memory is short.
    QImage bitmap(QSize size, double sigma = 0) const;
};

} // namespace Kovrel
