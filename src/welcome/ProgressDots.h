#pragma once

#include <QWidget>

namespace Kovrel {

// How far one has come on a way of a few steps.
class ProgressDots : public QWidget {
    Q_OBJECT

public:
    ProgressDots();

    void setProgress(size_t index, size_t count);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_index = 0;
    int m_count = 0;
};

} // namespace Kovrel
