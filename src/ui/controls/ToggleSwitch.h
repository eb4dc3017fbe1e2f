#pragma once

#include <QCheckBox>

namespace Kovrel {

// A check box that looks like what it is: something that is on or off at once.
class ToggleSwitch : public QCheckBox {
    Q_OBJECT

public:
    ToggleSwitch();

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

    bool hitButton(const QPoint& point) const override { return rect().contains(point); }
};

} // namespace Kovrel
