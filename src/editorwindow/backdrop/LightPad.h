#pragma once

#include "editor/backdrop/ShadowLight.h"

#include <QWidget>

namespace Kovrel {

// Where the light of a shadow comes from: a sun that is dragged around a card, or moved by the arrow keys; in the
// middle it shines from the front. Main thread.
class LightPad : public QWidget {
    Q_OBJECT

public:
    LightPad();

    // Is shown, not told.
    void setLight(ShadowLight light);

Q_SIGNALS:
    // Chosen by the user.
    void lightChosen(const ShadowLight& light);
    // The sun was let go.
    void finished();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void choose(ShadowLight light);
    void shineFrom(QPointF place);

    ShadowLight m_light;
};

} // namespace Kovrel
