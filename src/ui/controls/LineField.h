#pragma once

#include <QLineEdit>

namespace Kovrel {

// A line of text to be changed, on a ground of its own; it follows the font of the desktop.
class LineField : public QLineEdit {
    Q_OBJECT

public:
    LineField();

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void takeLook();
};

} // namespace Kovrel
