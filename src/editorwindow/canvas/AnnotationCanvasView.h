#pragma once

#include "editor/canvas/CanvasPicture.h"
#include "editor/canvas/CanvasViewport.h"
#include "editor/session/EditorPointing.h"
#include "editorwindow/canvas/CanvasWriting.h"

#include <QTimer>
#include <QWidget>

class QNativeGestureEvent;

namespace Kovrel {

class CanvasOverlay;

// The canvas of an editor: shows the document and takes pointer, keys and text for it. Main thread.
class AnnotationCanvasView : public QWidget {
    Q_OBJECT

public:
    // `session` outlives it.
    explicit AnnotationCanvasView(EditorSession& session, MeasureUnit measureUnit);

    EditorPointing& pointing() { return m_pointing; }

    void setRedactions(CanvasPicture::Redactions redactions);
    void setBackdropPicture(const QString& value, const QImage& picture);

    // Text that was found, in image points; `now` is what of it is looked at, and brought into sight.
    void setFound(std::vector<Rect> boxes, std::vector<Rect> now);

    // Of the capture's own size on its screen.
    double zoomPercent() const;
    void setZoomPercent(double percent);
    void zoomIn();
    void zoomOut();
    void fit();

    // In image points.
    Point imagePoint(QPointF widgetPoint) const;
    QPointF widgetPoint(Point imagePoint) const;

    bool isWriting() const { return m_writing.isActive(); }

    // The label that is being written.
    std::optional<QUuid> written() const { return m_writing.label(); }

    void write(QUuid label) { m_writing.begin(label); }

    // At the caret, while somebody writes.
    void insertText(const QString& text) { m_writing.insert(text); }

    void stopWriting() { m_writing.end(); }

    // Ends what is being written, dragged or selected, the first of them that there is. False: there is nothing.
    bool escape();

Q_SIGNALS:
    void zoomChanged();
    void contextMenuWanted(QPoint globalPosition);
    // What is on the clipboard, to be inserted.
    void textWanted();
    // To be put there.
    void textCopied(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    bool event(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void follow();
    EditorDocument shownDocument() const;
    void takeView();
    double share() const;
    void takeShare();
    // What lies over the picture, and where it lay before.
    void updateOverlay();
    void updatePicture(const QRegion& changed);
    void sketchBackdrop();
    void drawExactly();
    QRect fromView(const QRectF& devicePixels) const;
    std::optional<Rect> hidingCrop() const;
    QRect inCanvas(const QRect& part) const;
    void paintPicture(QPainter& painter, const CanvasPixels& pixels, const QRectF& part) const;
    void layOver(CanvasOverlay& overlay) const;
    CanvasPointer pointer(const QMouseEvent& event, int clicks = 1) const;

    QPointF inView(QPointF widgetPoint) const { return widgetPoint * devicePixelRatioF(); }

    void press(const QMouseEvent& event, int clicks);
    void showCursor(const CanvasPointer& pointer);
    void zoomBy(double factor, QPointF about);
    void pinch(const QNativeGestureEvent& event);
    bool editKey(const QKeyEvent& event);

    EditorSession& m_session;
    EditorPointing m_pointing;
    CanvasPicture m_picture;
    CanvasViewport m_viewport;
    CanvasWriting m_writing;
    QTimer m_restTimer; // until what was drawn for a moment is drawn exactly
    bool m_isSpaceHeld = false;
    std::optional<QPointF> m_panFrom; // device pixels
    EditorPointing::Target m_hovered;
    QRegion m_overlayArea; // device pixels, as it was shown last
    std::optional<Rect> m_shownCrop;
    EditorBackdrop m_shownBackdrop;
    std::pair<std::vector<Rect>, std::vector<Rect>> m_found; // all; what is looked at
    Subscription m_changes;
};

} // namespace Kovrel
