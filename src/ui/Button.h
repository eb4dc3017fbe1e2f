#pragma once

#include <QPushButton>

namespace Kovrel {

// A button that Kovrel paints itself, so that it looks the same on every desktop. The keyboard's focus shows as a ring.
class Button : public QPushButton {
    Q_OBJECT

public:
    explicit Button(const QString& text);

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    // One of the three, as the button is pressed, under the pointer or at rest.
    QColor ofState(const QColor& resting, const QColor& hovered, const QColor& pressed) const;

    void paintGround(QPainter& painter, const QColor& ground, const QColor& focusRing) const;
};

} // namespace Kovrel
