#include "platform/appearance/DesktopAppearance.h"

#include <QRegularExpression>

namespace Kovrel {

namespace {

// As themes are called by custom: "Adwaita-dark", "Mint-Y-Dark-Aqua".
bool isDarkTheme(const QString& name)
{
    static const QRegularExpression dark("\\bdark\\b", QRegularExpression::CaseInsensitiveOption);
    return name.contains(dark);
}

} // namespace

DesktopAppearance::DesktopAppearance(std::unique_ptr<X11Connection> connection)
    : m_settings(std::move(connection)),
      m_isDark(wish()),
      m_portalChanges(m_portal.onChange([this] { look(); })),
      m_settingsChanges(m_settings.onChange([this] { look(); }))
{
}

// A theme of another name may be either: a file of the toolkit's own may have made it dark.
std::optional<bool> DesktopAppearance::wish() const
{
    if (const auto isDark = m_portal.isDark())
        return isDark;
    return isDarkTheme(m_settings.text("Net/ThemeName")) ? std::optional(true) : std::nullopt;
}

// What was dark and is so no more has become light, whatever the toolkit's palette was like when we started.
void DesktopAppearance::look()
{
    const auto wish = this->wish();
    const auto isDark = wish || !m_isDark ? wish : std::optional(false);
    if (std::exchange(m_isDark, isDark) != isDark)
        m_observers.notify();
}

} // namespace Kovrel
