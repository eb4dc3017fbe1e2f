#pragma once

#include <QCheckBox>

namespace Kovrel {

// One of several that may be chosen together, with its name. Kovrel paints it itself.
class CheckBox : public QCheckBox {
    Q_OBJECT

public:
    explicit CheckBox(const QString& text);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

    bool hitButton(const QPoint& point) const override { return rect().contains(point); }
};

} // namespace Kovrel
