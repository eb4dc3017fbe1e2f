#pragma once

#include "pins/PinPlacement.h"
#include "platform/Displays.h"
#include "platform/Reply.h"
#include "ui/FloatingPanel.h"

#include <QImage>

#include <functional>

namespace Kovrel {

// The window of one pin: it is dragged and resized, has buttons while the pointer is on it, and lets through what lies
// below as far as the wheel says.
class PinPanel : public FloatingPanel {
    Q_OBJECT

public:
    // How a picture of another size is made, elsewhere.
    using Resample = std::function<void(QImage, QSize, Reply<QImage>)>;

    // `displays` and `shapes` outlive it; `scale`: the picture's pixels per point.
    PinPanel(QImage picture, double scale, Displays& displays, PanelShapes& shapes, Resample resample);

    // Comes to the screen; `pinsBefore`: how many there are.
    void spawnOn(const Display& display, int pinsBefore);
    // The capture looks different: its middle stays where it is.
    void setPicture(QImage picture, double scale);
    // The displays have changed.
    void relocate();
    void actualSize();

    // The buttons that it has besides the one that closes it.
    void setButtons(bool hasUnpin, bool hasEdit);
    // Without its buttons it is what a capture may show. Answers whether the screen changes.
    bool setChromeHidden(bool isHidden);

    const Display& display() const { return m_standing.display; }

Q_SIGNALS:
    void clicked(Kovrel::PinGeometry::Button button);
    void menuWanted(const QPoint& globalPosition);

protected:
    void paintContent(QPainter& painter, const QRectF& card) override;

    double cornerRadius() const override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    // Everything about a drag is worked out from how it began.
    struct Drag {
        PinGeometry::Zone zone;
        PinGeometry::Frame start;
        QPointF pointer; // root pixels
    };

    PinGeometry::Button buttonAt(QPointF point) const;
    void updateButtons();
    void hover(QPointF point);
    void dragTo(QPointF pointer);
    void stand(PinPlacement::Standing standing);
    void keep();
    void fit();
    QSize pictureSize() const;
    bool showsChrome() const;

    QImage m_picture;
    QImage m_fitted; // as large as it is shown; null while that is made
    PinGeometry::Picture m_measure;
    Displays& m_displays;
    Resample m_resample;
    PinPlacement::Standing m_standing;
    PinPlacement::Place m_place; // where the user has put it
    std::optional<Drag> m_drag;
    PinGeometry::Button m_hovered = PinGeometry::Button::none;
    PinGeometry::Button m_pressed = PinGeometry::Button::none;
    std::vector<PinGeometry::Button> m_buttons{PinGeometry::Button::close};
    bool m_isPointerInside = false;
    bool m_isChromeHidden = false;
};

} // namespace Kovrel
