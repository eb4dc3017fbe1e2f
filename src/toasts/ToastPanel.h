#pragma once

#include "model/ToastContent.h"
#include "platform/Display.h"

#include <QWidget>

namespace Kovrel {

// The floating card of one toast, with room for its shadow around it where windows can be translucent. It never takes
// the focus.
class ToastPanel : public QWidget {
    Q_OBJECT

public:
    ToastPanel(ToastContent content, const Display& display, bool isComposited);

    void setContent(ToastContent content);
    void popIn();
    // Fades and then deletes itself.
    void fadeOut();

Q_SIGNALS:
    void closeClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void place(const Display& display);
    void paintCard(QPainter& painter) const;
    void paintText(QPainter& painter, const QRectF& area) const;

    ToastContent m_content;
    double m_shadowRoom; // around the card, in points
};

} // namespace Kovrel
