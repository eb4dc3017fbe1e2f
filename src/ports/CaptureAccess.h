#pragma once

#include <chrono>

namespace Kovrel {

// Who may capture, and the windows that help when one may not. Main thread.
class CaptureAccess {
public:
    virtual ~CaptureAccess() = default;

    virtual bool isSignedIn() const = 0;
    // Asks for fresh credentials in the background when the stored ones are older.
    virtual void refreshCredentials(std::chrono::seconds olderThan) = 0;
    // Whether this desktop gives us its pixels; shows no prompt.
    virtual bool mayRecordScreen() const = 0;

    virtual void showHome() = 0;
    virtual void showOnboarding(bool withSignIn) = 0;
    virtual void showPermissionWindow() = 0;

    // A colour being picked, and a colour panel, would be in the way: they end without a colour.
    virtual void abandonColorPicking() = 0;
};

} // namespace Kovrel
