#pragma once

#include "editor/backdrop/BackdropMargins.h"
#include "editor/backdrop/EditorBackdropRenderer.h"
#include "editor/canvas/CanvasPixels.h"
#include "editor/document/EditorCapture.h"
#include "editor/document/EditorDocument.h"
#include "editor/marks/MarkSprites.h"
#include "model/MeasureUnit.h"

#include <QImage>
#include <QRegion>

#include <span>

namespace Kovrel {

// What an editor shows of a document: at the capture's own scale exactly the pixels that are exported, at smaller
// scales the same drawn smaller. Places are pixels of the shown capture, y down, counted from its upper left corner;
// backdrops and marks may reach beyond it. A crop is carried out on a backdrop; without one all is there. One thread.
class CanvasPicture {
public:
    // Made of the capture by RedactionSources; null where they are not there yet, and blackouts take their place.
    struct Redactions {
        QImage blurred;
        QImage pixelated;
    };

    explicit CanvasPicture(EditorCapture capture, MeasureUnit measureUnit = MeasureUnit::pixels);

    void setRedactions(Redactions redactions);
    // What a backdrop shows whose fill is a picture of the user's own.
    void setBackdropPicture(const QString& value, const QImage& picture);
    // While a backdrop goes on changing it is sketched: fill and shadow are a little softer than they will be.
    void setSketched(bool isSketched);
    // Shown pixels to a pixel of the capture, above 0 and at most 1.
    void setShare(double share);

    double share() const { return m_share; }

    // Where it may look different now.
    QRegion setDocument(const EditorDocument& document);

    // The whole canvas, and what of it the capture is.
    QRect area() const;

    QRect captureArea() const { return {{}, m_shown.size()}; }

    // The canvas' pixels, all of those within `needed` drawn: transparent where nothing is.
    const CanvasPixels& drawn(const QRegion& needed);

    // All of it: Format_ARGB32_Premultiplied. Its upper left pixel is that of area().
    QImage picture() { return drawn(area()).ofArea(); }

    bool isDrawn() const { return !m_picture.isEmpty(); }

private:
    struct Pictures {
        QImage capture;
        QImage blurred;
        QImage pixelated;

        QSize size() const { return capture.size(); }
    };

    // What of the capture is set on a backdrop: all of it, or what a crop leaves. Pixels of the capture.
    struct Card {
        QRect pixels;
        std::optional<CaptureSubject> subject; // counted from the card's upper left corner
        BackdropMargins margins;
    };

    // The backdrop, without the capture.
    struct Ground {
        bool isSketched = false;
        std::optional<BackdropLayout> layout; // none without a backdrop
        QImage picture;                       // null until it is needed; smaller than the canvas where it is sketched
    };

    // What lies below a mark that changes again and again, as while it is dragged: drawn once, where it is needed.
    struct Below {
        size_t firstChanged = 0; // in the document
        size_t count = 0;        // marks that are in it; 0: none is kept
        CanvasPixels pixels;     // whole tiles
    };

    double scale() const { return m_capture.scale * m_share; }

    void takeShare();
    void takePadding();
    void takeCard();
    void takeBackdrop();
    QPoint cardCorner() const;
    QImage cardPixels() const;
    std::optional<BackdropLayout> layoutAt(double scale) const;
    const QImage& groundPicture();
    bool isOpaque() const;
    QRegion pixelsOf(const std::vector<QRectF>& areas) const;
    // What shows nothing but the opaque capture, whatever the backdrop around it is like.
    QRegion insideOfCard() const;
    bool showsCaptureAlone() const;
    void takeMarked();
    void takeRedactions();
    void redraw(const QRegion& changed);
    void redrawMarked(const QRect& rect);
    void redrawPicture(const QRect& rect);
    void keepBelow(const std::vector<Annotation>& before);
    void drawBelow(const QRect& rect);
    void drawGround(QPainter& painter, QPoint corner, const QRect& rect);
    void drawAbove(QPainter& painter, QPoint corner, const QRect& rect, std::span<const Annotation> marks);
    std::vector<Annotation> marksOnCapture() const;
    QRectF inTarget(const QRect& rect) const;

    EditorCapture m_capture;
    MeasureUnit m_measureUnit;
    std::optional<Card> m_whole; // once a backdrop has asked for it
    std::optional<Card> m_card;
    Redactions m_redactions;
    double m_share = 1;
    Pictures m_shown; // at the share
    EditorDocument m_document;
    QImage m_marked; // the capture with what changes it; null until it is needed
    EditorBackdropRenderer m_renderer;
    Ground m_ground;
    QMargins m_padding; // that marks which stick out ask for
    CanvasPixels m_picture;
    Below m_below;
    MarkSprites m_sprites;
};

} // namespace Kovrel
