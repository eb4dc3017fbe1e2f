#pragma once

#include <QWidget>

namespace Kovrel {

// A fine line between what stands below each other.
class Hairline : public QWidget {
    Q_OBJECT

public:
    Hairline();

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace Kovrel
