#include "ui/style/AppColors.h"

#include "ui/tokens/ColorScheme.h"
#include "ui/tokens/Theme.h"

#include <QApplication>
#include <QPalette>

namespace Kovrel {

AppColors::AppColors(Appearance& appearance)
    : m_appearance(appearance), m_changes(appearance.onChange([this] { follow(); }))
{
    follow();
}

// The toolkit's own palette, which has the desktop's colours, wherever it is right.
void AppColors::follow()
{
    QApplication::setPalette(QPalette());
    ColorScheme scheme = ColorScheme::of(QApplication::palette());
    const bool isDark = m_appearance.isDark().value_or(scheme.isDark);
    if (std::exchange(scheme.isDark, isDark) != isDark)
        QApplication::setPalette(Theme::of(scheme).palette());
}

} // namespace Kovrel
