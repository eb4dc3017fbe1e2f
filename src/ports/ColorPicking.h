#pragma once

namespace Kovrel {

// A colour that is being picked, and the panel of colours. Main thread.
class ColorPicking {
public:
    virtual ~ColorPicking() = default;

    // They would be in the way of a capture: they end without a colour.
    virtual void abandon() = 0;
};

} // namespace Kovrel
