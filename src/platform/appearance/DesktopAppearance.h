#pragma once

#include "platform/appearance/Appearance.h"
#include "platform/appearance/PortalColorScheme.h"
#include "platform/x11/X11Settings.h"

namespace Kovrel {

// Asks the portal, by which GNOME and KDE tell it, and else goes by the name of the theme that a settings manager on
// the X server gives, as on XFCE and MATE.
class DesktopAppearance : public Appearance {
public:
    // The connection belongs to this object alone.
    explicit DesktopAppearance(std::unique_ptr<X11Connection> connection);

    std::optional<bool> isDark() const override { return m_isDark; }

    Subscription onChange(std::function<void()> callback) override { return m_observers.add(std::move(callback)); }

private:
    std::optional<bool> wish() const;
    void look();

    PortalColorScheme m_portal;
    X11Settings m_settings;
    std::optional<bool> m_isDark;
    Observers<> m_observers;
    Subscription m_portalChanges;
    Subscription m_settingsChanges;
};

} // namespace Kovrel
