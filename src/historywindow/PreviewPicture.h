#pragma once

#include "model/Geometry.h"

#include <QImage>
#include <QWidget>

#include <vector>

namespace Kovrel {

// A capture as large as there is room, with the places that were searched for marked. Main thread.
class PreviewPicture : public QWidget {
    Q_OBJECT

public:
    PreviewPicture();

    // Already as large as it is to be shown, in device pixels; null: none.
    void setPicture(QImage picture);
    // Parts of the picture, each axis from 0 to 1, origin bottom-left.
    void setMarks(std::vector<Rect> marks);
    // The room for a picture, in device pixels.
    QSize room() const;

Q_SIGNALS:
    void roomChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QRectF place() const;

    QImage m_picture;
    std::vector<Rect> m_marks;
};

} // namespace Kovrel
