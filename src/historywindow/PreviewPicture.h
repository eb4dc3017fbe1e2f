#pragma once

#include "livetext/layer/LiveTextLayer.h"
#include "model/Geometry.h"

#include <QImage>
#include <QWidget>

#include <vector>

namespace Kovrel {

// A capture as wide as there is room and no higher than its shape asks, with the places that were searched for marked.
// Text that was read in it can be selected.
// Main thread.
class PreviewPicture : public QWidget {
    Q_OBJECT

public:
    // `preferences` outlives it.
    PreviewPicture(Preferences& preferences, LiveTextLayer::Doors doors);

    // Of the capture, in pixels; an empty one where it is not known.
    void setShape(QSize shape);
    // Already as large as it is to be shown, in device pixels; null: none.
    void setPicture(QImage picture);
    // Parts of the picture, each axis from 0 to 1, origin bottom-left.
    void setMarks(std::vector<Rect> marks);
    void setText(const OCRResult& text);

    void clearText() { m_text->clear(); }

    // The room for a picture, in device pixels.
    QSize room() const;

Q_SIGNALS:
    void roomChanged();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QRectF place() const;
    void takeHeight();
    void placeText();

    QSize m_shape{16, 10};
    QImage m_picture;
    std::vector<Rect> m_marks;
    LiveTextLayer* m_text;
};

} // namespace Kovrel
