#pragma once

#include "editor/backdrop/BackdropFillCache.h"
#include "editor/backdrop/BackdropLayout.h"
#include "editor/backdrop/BackdropMargins.h"
#include "editor/backdrop/EditorBackdrop.h"
#include "editor/backdrop/ShadowTile.h"
#include "model/CaptureSubject.h"

#include <QColor>
#include <QImage>
#include <QPainter>

#include <optional>

namespace Kovrel {

// Draws backdrops, on screen and into files alike: the same layout gives the same pixels. It keeps what it has prepared
// for the next time, so an editor has one of its own. One thread at a time.
//
// A painter's coordinates are pixels of the canvas, origin top-left, and whatever it is clipped to is drawn alone. The
// order is fill, shadow, frame, capture; marks come on top.
class EditorBackdropRenderer {
public:
    // What a picture fill shows whose value is none of the catalogue's, as one of the user's own.
    void setPicture(const QString& value, const QImage& picture) { m_fills.setPicture(value, picture); }

    static bool isOpaque(const BackdropFill& fill);

    // Canvases that follow each other at many similar sizes are sketched: they share a fill, stretched.
    enum class Precision { exact, sketched };

    // The fill covers the canvas.
    void fillPainter(QPainter& painter, const BackdropLayout& layout, const EditorBackdrop& backdrop,
                     Precision precision = Precision::exact);
    // Only around the card, so that what shines through a capture is the fill.
    void drawShadow(QPainter& painter, const BackdropLayout& layout, const EditorBackdrop& backdrop);
    // Nothing where the frame has no width.
    void drawFrame(QPainter& painter, const BackdropLayout& layout, const EditorBackdrop& backdrop,
                   Precision precision = Precision::exact);

    // The capture within the card's rounded corners. One whose size is not the layout's is resampled each time, so who
    // redraws often has it resampled before.
    static void drawCapture(QPainter& painter, const BackdropLayout& layout, const QImage& capture);

    // A canvas with fill, shadow and frame: Format_RGB32, or Format_ARGB32_Premultiplied where the fill lets something
    // through or is none. A null image when memory is short.
    QImage canvas(const BackdropLayout& layout, const EditorBackdrop& backdrop, Precision precision = Precision::exact);

    // The whole picture of a capture at its own scale, with its profile and density; subject and margins in its pixels.
    // Without a subject, the one that its alpha shows counts.
    // A null image when memory is short or the canvas would be too large.
    QImage render(const QImage& capture, double exportScale, const EditorBackdrop& backdrop,
                  const std::optional<CaptureSubject>& subject = {}, const BackdropMargins& margins = {});

private:
    QColor frameColor(const BackdropLayout& layout, const EditorBackdrop& backdrop, Precision precision);

    BackdropFillCache m_fills;
    ShadowTileCache m_shadows;
};

} // namespace Kovrel
