#pragma once

#include "ui/Button.h"

namespace Kovrel {

// A button that stands beside others and leaves the first word to them.
class PlainButton : public Button {
    Q_OBJECT

public:
    explicit PlainButton(const QString& text);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

    // Of the text; the button's own where nothing is said.
    virtual QColor textColor() const;

    virtual QString shownText() const { return text(); }
};

} // namespace Kovrel
