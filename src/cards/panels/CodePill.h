#pragma once

#include "cards/CardCode.h"

#include <QAbstractButton>

namespace Kovrel {

// What a code in the capture says, on the card. Main thread.
class CodePill : public QAbstractButton {
    Q_OBJECT

public:
    CodePill(const CardCode& code, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace Kovrel
