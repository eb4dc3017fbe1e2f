#pragma once

#include "ui/Button.h"

namespace Kovrel {

// What is done first in a window.
class PrimaryButton : public Button {
    Q_OBJECT

public:
    explicit PrimaryButton(const QString& text);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace Kovrel
