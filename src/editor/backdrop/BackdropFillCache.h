#pragma once

#include "editor/backdrop/BackdropFill.h"

#include <QColor>
#include <QImage>

#include <list>
#include <optional>

namespace Kovrel {

// Keeps the pixels of the fills that were used last, so that a redraw copies them. One thread at a time.
class BackdropFillCache {
public:
    // What a picture of this value shows where the catalogue has none: one of the user's own, which whoever may wait
    // for a file has read. It covers the canvas, what is too much cut off evenly; transparent pixels are black. The one
    // before it is forgotten.
    void setPicture(const QString& value, const QImage& picture);

    // The pixels of a gradient or picture for a canvas; `blur` is a fraction of its shorter side and softens pictures.
    // What nobody knows is a plain grey. A null image when memory is short.
    QImage bitmap(const BackdropFill& fill, QSize canvas, double blur);

    // The mean of those pixels, which is what the page looks like from afar.
    QColor mean(const BackdropFill& fill, QSize canvas, double blur);

private:
    struct Entry {
        BackdropFill fill;
        QSize canvas;
        double blur;
        QImage image;
        std::optional<QColor> mean = {};
    };

    Entry& entry(const BackdropFill& fill, QSize canvas, double blur);

    QImage rendered(const BackdropFill& fill, QSize canvas, double blur) const;

    QString m_pictureValue;
    QImage m_picture;
    std::list<Entry> m_entries; // the one that was used last first
};

} // namespace Kovrel
