#pragma once

#include <QSlider>

namespace Kovrel {

// A slider that Kovrel paints itself. Turning the wheel over it scrolls what it stands in.
class Slider : public QSlider {
    Q_OBJECT

public:
    Slider();

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace Kovrel
