#pragma once

#include "platform/PanelShapes.h"

#include <map>

namespace Kovrel::Testing {

class FakePanelShapes : public PanelShapes {
public:
    std::map<quintptr, QRegion> inputs;

    void takeInputOnlyIn(quintptr window, const QRegion& pixels) override { inputs[window] = pixels; }
};

} // namespace Kovrel::Testing
