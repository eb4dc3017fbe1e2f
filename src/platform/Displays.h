#pragma once

#include "platform/Display.h"
#include "platform/Observers.h"

#include <functional>

namespace Kovrel {

// Device pixels per point of the display with this name.
using ScaleLookup = std::function<double(const QString& name)>;

// The displays as they are now. Main thread; answers from a snapshot that follows changes of the desktop.
class Displays {
public:
    virtual ~Displays() = default;

    virtual DisplayList all() const = 0;
    // Whether windows can be translucent: shadows and rounded corners show what is behind them.
    virtual bool isComposited() const = 0;
    // Called after a display came, went, moved or changed its scale.
    virtual Subscription onChange(std::function<void()> callback) = 0;
};

} // namespace Kovrel
