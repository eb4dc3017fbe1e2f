#pragma once

#include "platform/Observers.h"

#include <chrono>
#include <functional>

namespace Kovrel {

// Whether somebody is signed in. Main thread.
class AccountStatus {
public:
    virtual ~AccountStatus() = default;

    // False until it is known.
    virtual bool isSignedIn() const = 0;
    // Runs at once when it is known already.
    virtual void whenKnown(std::function<void()> work) = 0;
    // Called after somebody signed in or out.
    virtual Subscription onChange(std::function<void()> observer) = 0;
    // Uses the account that is kept on this computer.
    virtual void signInOnThisComputer() = 0;
    // Asks for fresh credentials in the background when the stored ones are older.
    virtual void refreshCredentials(std::chrono::seconds olderThan) = 0;
};

} // namespace Kovrel
