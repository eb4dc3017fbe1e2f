#pragma once

#include "ui/controls/SymbolButton.h"

#include <QPoint>

#include <optional>

namespace Kovrel {

// A button from which something is dragged. The keyboard does not stop at it: there is nothing that it could do there.
class DragHandle : public SymbolButton {
    Q_OBJECT

public:
    DragHandle(const QString& symbol, const QString& name);

Q_SIGNALS:
    // The pressed pointer has gone far enough, once for each press.
    void dragged();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    std::optional<QPoint> m_from; // until it is dragged
};

} // namespace Kovrel
