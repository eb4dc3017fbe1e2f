#pragma once

#include <QString>

namespace Kovrel {

// The windows that help a user who can't go on. They come when the foreground is free. Main thread.
class HelpWindows {
public:
    virtual ~HelpWindows() = default;

    virtual void showHome() = 0;
    virtual void showOnboarding(bool withSignIn) = 0;
    virtual void showPermissionWindow() = 0;
    virtual void presentUpdatedNotice(const QString& version) = 0;
};

} // namespace Kovrel
