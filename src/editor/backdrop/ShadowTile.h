#pragma once

#include "editor/backdrop/BackdropLayout.h"

#include <QImage>
#include <QPainter>

#include <optional>

namespace Kovrel {

// The shadow around a rounded rectangle, rendered once. A rectangle that is larger than the shadow's reach is drawn in
// nine parts, of which the middle ones are stretched, so one tile serves all such sizes.
struct ShadowTile {
    QSize shape;       // of the rectangle that throws it, in pixels
    double radius = 0; // of its corners
    std::vector<BackdropLayout::ShadowLayer> layers;

    QImage image;   // Format_ARGB32_Premultiplied, black; nothing inside the shape
    int padded = 0; // how much larger than the shape the image is on each side

    // The tile that serves a rectangle of this size. A null image when memory is short.
    static ShadowTile rendered(QSize size, double radius, const std::vector<BackdropLayout::ShadowLayer>& layers);

    bool serves(QSize size, double cornerRadius, const std::vector<BackdropLayout::ShadowLayer>& wanted) const;

    // Around the rectangle, and nothing inside it.
    void drawOutside(QPainter& painter, const QRect& rect, double opacity) const;
};

// The tile that was used last.
class ShadowTileCache {
public:
    const ShadowTile& tile(QSize size, double radius, const std::vector<BackdropLayout::ShadowLayer>& layers);

private:
    std::optional<ShadowTile> m_tile;
};

} // namespace Kovrel
