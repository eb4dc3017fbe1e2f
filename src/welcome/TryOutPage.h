#pragma once

#include "welcome/FirstRunDrawing.h"
#include "welcome/FirstRunPage.h"

namespace Kovrel {

// A first capture, before it is made and after it.
class TryOutPage : public FirstRunPage {
    Q_OBJECT

public:
    TryOutPage();

    // `keys`: of an area; empty: there are none.
    void show(bool hasCaptured, const QString& keys, bool hasCard);

private:
    FirstRunDrawing* m_drawing;
};

} // namespace Kovrel
