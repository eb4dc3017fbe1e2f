#pragma once

#include <QComboBox>

namespace Kovrel {

// One of several, which are seen when it is opened. Turning the wheel over it scrolls what it stands in.
class ChoiceBox : public QComboBox {
    Q_OBJECT

public:
    ChoiceBox();

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void takeLook();
};

} // namespace Kovrel
