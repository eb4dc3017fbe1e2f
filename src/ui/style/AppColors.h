#pragma once

#include "platform/appearance/Appearance.h"

namespace Kovrel {

// Gives the application a palette as dark as the desktop wants it, where the toolkit does not do so by itself: all
// windows, menus and tool tips follow, also while they are open. Main thread.
class AppColors {
public:
    // The appearance must outlive this.
    explicit AppColors(Appearance& appearance);

private:
    void follow();

    Appearance& m_appearance;
    Subscription m_changes;
};

} // namespace Kovrel
