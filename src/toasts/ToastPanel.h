#pragma once

#include "model/ToastContent.h"
#include "ui/FloatingPanel.h"

#include <QVariantAnimation>

namespace Kovrel {

// The floating card of one toast. It takes the pointer once it has popped in, on its card and its close button only,
// and of its buttons the left one.
class ToastPanel : public FloatingPanel {
    Q_OBJECT

public:
    ToastPanel(ToastContent content, const Display& display, PanelShapes& shapes, bool isComposited);

    void setContent(ToastContent content);
    void standOn(const Display& display);

    bool isPointerInside() const { return m_isPointerInside; }

Q_SIGNALS:
    void tapped();
    void closeClicked();
    void pointerInsideChanged();

protected:
    void paintContent(QPainter& painter, const QRectF& card) override;
    std::vector<QRectF> inputAreas() const override;
    bool event(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    enum class Part { none, card, closeButton };

    QPointF closeCentre() const;
    QRectF closeSquare() const;
    Part partAt(QPointF point) const;
    void setPointerInside(bool isInside);
    void spin();

    ToastContent m_content;
    bool m_isPointerInside = false;
    Part m_hovered = Part::none;
    Part m_pressed = Part::none;
    QVariantAnimation m_spinning; // from 0 to 1, again and again
};

} // namespace Kovrel
