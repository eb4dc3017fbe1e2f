#pragma once

#include "pins/PinQuickAction.h"

#include <QMenu>

#include <functional>

namespace Kovrel {

// The context menu of a pin: only what can be done is in it.
class PinMenu : public QMenu {
    Q_OBJECT

public:
    PinMenu(QWidget& pin, const std::function<bool(PinQuickAction)>& canPerform, bool isSaved);

Q_SIGNALS:
    void chosen(Kovrel::PinQuickAction action);
};

} // namespace Kovrel
