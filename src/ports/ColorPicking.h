#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace Kovrel {

// A colour that is being picked from the screen. Main thread.
class ColorPicking {
public:
    // The colour is "#RRGGBB"; nothing when none was picked.
    using Completion = std::function<void(std::optional<QString> hex)>;

    virtual ~ColorPicking() = default;

    // Lets the user point at a colour. The completion is called once, never inside this call; a picking that is under
    // way ends without a colour.
    virtual void pick(Completion completion) = 0;

    // It would be in the way of a capture: it ends without a colour. Answers whether the screen changes by that.
    virtual bool abandon() = 0;
};

} // namespace Kovrel
