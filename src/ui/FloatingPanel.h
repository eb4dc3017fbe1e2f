#pragma once

#include "platform/Display.h"
#include "platform/PanelShapes.h"
#include "ui/tokens/Metrics.h"

#include <QPointer>
#include <QWidget>

#include <chrono>
#include <vector>

class QPropertyAnimation;

namespace Kovrel {

// A card that floats above other windows and never takes the focus. Where the desktop composites, it has round corners
// and room for its shadow around it; elsewhere it is square and opaque. It belongs to who made it, also when the
// toolkit closes all windows at the end of the program; one that fades out deletes itself.
// Where it stands is said in root pixels, what is in it in its own points with the origin top-left.
class FloatingPanel : public QWidget {
    Q_OBJECT

public:
    enum class Desktops { current, every };

    // `shapes` outlives it.
    FloatingPanel(PanelShapes& shapes, bool isComposited, Desktops desktops);

    // The card covers these root pixels, in the scale of a display. Its shadow ends where the display does, the card
    // may reach beyond. Sizes are rounded to whole points.
    void place(const Display& display, const QRect& card);

    // Opens, to be filled later: empty, with nothing to see of it, and not there for the pointer.
    void openUnseen();
    // Is there at once.
    void appear();
    void popIn();
    // Fades, and then is no more, also for compositors.
    void fadeOut();
    // Goes at once, also for compositors, which show a window that is hidden for a while after: what they show is
    // empty.
    void vanish();
    // Comes back as it came.
    void reappear();

    // Whether it neither comes nor goes.
    bool hasSettled() const { return m_hasSettled; }

protected:
    virtual void paintContent(QPainter& painter, const QRectF& card) = 0;

    // Where the panel takes the pointer: clicks on what shines through elsewhere are meant for that.
    virtual std::vector<QRectF> inputAreas() const { return {m_card}; }

    // `inputAreas` answers something else than before.
    void shapeInput();

    QRectF card() const { return m_card; }

    // Of the card, where the desktop composites.
    virtual double cornerRadius() const { return Radius::card; }

    // The root pixel of a position on all screens that the toolkit tells.
    QPointF rootPixel(QPointF globalPosition) const;

    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void moveTo(const Display& display, const QRect& pixels);
    void setShadowEnd(const QRectF& end);
    void paintGround(QPainter& painter) const;
    void paintShadow(QPainter& painter, double radius) const;
    QPropertyAnimation* makeFade(double opacity, std::chrono::milliseconds duration);
    void setSettled(bool hasSettled);
    void hideEmpty();

    PanelShapes& m_shapes;
    double m_shadowRoom; // around the card
    QRectF m_card;
    QRectF m_shadowEnd; // beyond it the shadow would be on another display
    double m_scale = 1; // of the display; the toolkit learns of it some time after the panel went there
    bool m_isEmpty = false;
    bool m_hasSettled = false;
    QPointer<QPropertyAnimation> m_fade; // that runs
};

} // namespace Kovrel
