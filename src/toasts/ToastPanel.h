#pragma once

#include "model/ToastContent.h"
#include "ui/FloatingPanel.h"

namespace Kovrel {

// The floating card of one toast.
class ToastPanel : public FloatingPanel {
    Q_OBJECT

public:
    ToastPanel(ToastContent content, const Display& display, PanelShapes& shapes, bool isComposited);

    void setContent(ToastContent content);

Q_SIGNALS:
    void closeClicked();

protected:
    void paintContent(QPainter& painter, const QRectF& card) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void paintIcon(QPainter& painter, const QRectF& circle) const;
    void paintText(QPainter& painter, const QRectF& area) const;

    ToastContent m_content;
};

} // namespace Kovrel
