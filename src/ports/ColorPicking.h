#pragma once

#include "model/ColorPick.h"
#include "ports/Port.h"

namespace Kovrel {

// A colour that is being picked from the screen. Main thread.
class ColorPicking {
public:
    using Completion = ColorCompletion;

    virtual ~ColorPicking() = default;

    // Lets the user point at a colour. The completion is called once, never inside this call; a picking that is under
    // way ends without a colour.
    virtual void pick(Completion completion) = 0;

    // It would be in the way of a capture: it ends without a colour. Answers whether the screen changes by that.
    virtual bool abandon() = 0;

    // For fields that offer it; empty where nothing lets the user pick.
    static ColorPick offeredBy(const Port<ColorPicking>& port)
    {
        if (!port)
            return {};
        return [&picking = *port](ColorCompletion completion) { picking.pick(std::move(completion)); };
    }
};

} // namespace Kovrel
