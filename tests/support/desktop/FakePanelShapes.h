#pragma once

#include "platform/PanelShapes.h"

#include <map>

namespace Kovrel::Testing {

class FakePanelShapes : public PanelShapes {
public:
    std::map<quintptr, QRect> inputs;

    void takeInputOnlyIn(quintptr window, const QRect& pixels) override { inputs[window] = pixels; }
};

} // namespace Kovrel::Testing
