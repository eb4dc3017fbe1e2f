#include "ui/Label.h"

#include "ui/LookChanges.h"

namespace Kovrel {

Label::Label(TextStyle style, Role role)
{
    const auto takeFont = [this, style] { setFont(Typography::font(style)); };
    takeFont();
    connect(&LookChanges::shared(), &LookChanges::changed, this, takeFont);
    setForegroundRole(role == Role::secondary ? QPalette::PlaceholderText : QPalette::WindowText);
    setWordWrap(true);
    // By itself the toolkit goes by the direction of the text, not of the window.
    if (layoutDirection() == Qt::RightToLeft)
        setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
}

} // namespace Kovrel
