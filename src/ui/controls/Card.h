#pragma once

#include <QWidget>

namespace Kovrel {

// A ground of its own for controls that belong together.
class Card : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace Kovrel
