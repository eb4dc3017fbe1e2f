#pragma once

#include "ui/Button.h"

namespace Kovrel {

// The title of a section, which a click unfolds and folds again. Main thread.
class DisclosureButton : public Button {
    Q_OBJECT

public:
    explicit DisclosureButton(const QString& title);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void checkStateSet() override;
    void nextCheckState() override;

private:
    void tell();
};

} // namespace Kovrel
