#pragma once

#include "ui/Button.h"

namespace Kovrel {

// A tab at the side of a window; one of several is chosen.
class TabButton : public Button {
    Q_OBJECT

public:
    TabButton(const QString& symbol, const QString& title);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbol;
};

} // namespace Kovrel
