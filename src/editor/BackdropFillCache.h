#pragma once

#include "editor/BackdropFill.h"

#include <QColor>
#include <QImage>

#include <list>

namespace Kovrel {

// Keeps the pixels of the fills that were used last, so that a redraw copies them. One thread at a time.
class BackdropFillCache {
public:
    // The pixels of a gradient or picture for a canvas; `blur` is a fraction of its shorter side and softens pictures.
    // What the catalogue does not know is a plain grey. A null image when memory is short.
    QImage bitmap(const BackdropFill& fill, QSize canvas, double blur);

private:
    struct Entry {
        BackdropFill fill;
        QSize canvas;
        double blur;
        QImage image;
    };

    std::list<Entry> m_entries; // the one that was used last first
};

} // namespace Kovrel
