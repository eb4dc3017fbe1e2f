#pragma once

#include "platform/Observers.h"

#include <QString>

#include <functional>
#include <optional>

namespace Kovrel {

// Whether there is a newer version of the program. Main thread.
class UpdateStatus {
public:
    virtual ~UpdateStatus() = default;

    // That the package manager has, as people read it; no value where none is known.
    virtual std::optional<QString> newerVersion() const = 0;
    virtual Subscription onChange(std::function<void()> observer) = 0;
};

} // namespace Kovrel
