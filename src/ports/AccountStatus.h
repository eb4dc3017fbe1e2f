#pragma once

#include "model/AccountKind.h"
#include "platform/Observers.h"

#include <chrono>
#include <functional>

namespace Kovrel {

// Whether somebody is signed in. Main thread.
class AccountStatus {
public:
    virtual ~AccountStatus() = default;

    // Nobody until it is known.
    virtual AccountKind kind() const = 0;

    bool isSignedIn() const { return kind() != AccountKind::none; }

    // Runs at once when it is known already.
    virtual void whenKnown(std::function<void()> work) = 0;
    // Called after somebody signed in or out.
    virtual Subscription onChange(std::function<void()> observer) = 0;
    // Uses the account that is kept on this computer.
    virtual void signInOnThisComputer() = 0;
    // Forgets the account.
    virtual void signOut() = 0;
    // Asks for fresh credentials in the background when the stored ones are older.
    virtual void refreshCredentials(std::chrono::seconds olderThan) = 0;
};

} // namespace Kovrel
