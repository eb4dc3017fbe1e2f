#pragma once

#include "platform/Display.h"
#include "platform/PanelShapes.h"

#include <QWidget>

#include <chrono>

class QPropertyAnimation;

namespace Kovrel {

// A card that floats above other windows and never takes the focus. Where the desktop composites, it has round corners
// and room for its shadow around it; elsewhere it is square and opaque. It deletes itself when it is closed.
// Lengths are points.
class FloatingPanel : public QWidget {
    Q_OBJECT

public:
    enum class Desktops { current, every };

    // `shapes` outlives it.
    FloatingPanel(PanelShapes& shapes, bool isComposited, Desktops desktops);

    void popIn();
    // Fades and then closes.
    void fadeOut();
    // Goes at once, also for compositors, which show a window that is hidden for a while after: what they show is
    // empty.
    void vanish();
    void reappear();

protected:
    // The card's upper right corner stands `margin` within that of the usable area of the display.
    void placeAtTopRight(const Display& display, QSizeF cardSize, QSizeF margin);

    virtual void paintContent(QPainter& painter, const QRectF& card) = 0;

    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void leaveShadowToOthers();
    QRectF card() const;
    void paintGround(QPainter& painter) const;
    QPropertyAnimation* makeFade(double opacity, std::chrono::milliseconds duration);

    PanelShapes& m_shapes;
    double m_shadowRoom; // around the card
    bool m_isEmpty = false;
};

} // namespace Kovrel
